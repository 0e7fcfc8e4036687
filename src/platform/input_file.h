// A file, or a text in memory, that is read through one block.
//
// The tokeniser scans inside the block, between Cursor and Limit. kScanReach line feeds follow Limit. The first of them
// ends every scan, so a scan compares with Limit only where it meets a line feed, and may read that many bytes at once.
#ifndef STEPRT_PLATFORM_INPUT_FILE_H
#define STEPRT_PLATFORM_INPUT_FILE_H

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "support/number_parse.h"

namespace steprt {

class InputFile {
 public:
  static constexpr int kEnd = -1;

  // Opens a file for reading. Returns null if it cannot be opened or is a directory, or when memory runs out. Release
  // it with delete.
  [[nodiscard]] static InputFile* OpenOrNull(const char* name);

  // Makes one that reads from memory and is empty until Restart. Returns null when memory runs out.
  [[nodiscard]] static InputFile* MemoryOrNull();

  // Starts again with `text`, which must not change while it is read. Only for one that reads from memory.
  void Restart(std::string_view text);

  ~InputFile();
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;

  const char* Cursor() const { return cursor_; }
  const char* Limit() const { return limit_; }

  // The first byte of the block, and the one before it; a line feed before the first block. The cursor may be moved to
  // that byte, too.
  const char* Begin() const { return block_; }
  char Before() const { return block_[-1]; }

  void MoveTo(const char* cursor) { cursor_ = cursor; }

  // The count of blocks read so far.
  std::uint32_t Blocks() const { return blocks_; }

  // The size of the file divided by the size of the part before the cursor; 1 if the size of the file is unknown.
  double Growth() const {
    const std::uint64_t passed = taken_ - static_cast<std::uint64_t>(limit_ - cursor_);
    return size_ > passed && passed > 0 ? static_cast<double>(size_) / static_cast<double>(passed) : 1;
  }

  // The offset in the file of a byte of this block, and that of the first byte of a line that began before the block.
  std::uint64_t OffsetOf(const char* byte) const { return taken_ - static_cast<std::uint64_t>(limit_ - byte); }
  std::uint64_t LineStart() const { return lineStart_; }

  // Counts the columns of this line from the cursor on.
  void StartLine() { lineStart_ = OffsetOf(cursor_); }

  // The count of bytes of the file; 0 if it is unknown.
  std::uint64_t Size() const { return size_; }

  // Ends the file here.
  void Stop() {
    ended_ = true;
    cursor_ = limit_;
  }

  // Return the next byte, and read the next block if this one is used up. They return kEnd at the end of the file. A
  // read that fails ends the file.
  int Peek() { return cursor_ != limit_ || Refill() ? static_cast<unsigned char>(*cursor_) : kEnd; }
  int Get() { return cursor_ != limit_ || Refill() ? static_cast<unsigned char>(*cursor_++) : kEnd; }

  // Whether the file ended because a read failed.
  bool HasFailed() const { return failed_; }

  // Replaces this block, which must be used up, by the next one. Returns false at the end of the file.
  bool Refill();

 private:
  static constexpr std::size_t kBlock = 1 << 16;

  InputFile(int handle, std::uint64_t size) : handle_(handle), size_(size) {
    block_[-1] = '\n';
    EndBlock();
  }

  std::size_t ReadBlock();
  void NoteLineStart();
  void EndBlock();

  const int handle_;         // -1: the bytes are in memory
  std::string_view memory_;  // the bytes not yet read
  std::uint64_t size_;       // 0: unknown
  std::uint64_t lineStart_ = 0;
  std::uint64_t taken_ = 0;
  std::uint32_t blocks_ = 0;
  bool ended_ = false;
  bool failed_ = false;
  char* const block_ = bytes_ + 1;
  const char* cursor_ = block_;
  const char* limit_ = block_;
  char bytes_[1 + kBlock + kScanReach];
};

}  // namespace steprt

#endif
