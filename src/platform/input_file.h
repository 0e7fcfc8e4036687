// A file that is read through one block. The tokeniser scans inside the block, between Cursor and Limit; behind Limit
// stand kScanReach line feeds, the first of which ends every scan, so that a scan looks for Limit only where it meets
// one and may look at that many bytes at once.
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

  // Opens for reading; null when the file cannot be opened, is a directory, or memory is exhausted. For delete.
  [[nodiscard]] static InputFile* OpenOrNull(const char* name);

  // Reads from memory instead. It is empty until Restart. Null when memory is exhausted. For delete.
  [[nodiscard]] static InputFile* MemoryOrNull();

  // Begins anew with `text`, which must stay as it is while it is read. Only for one that reads from memory.
  void Restart(std::string_view text);

  ~InputFile();
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;

  const char* Cursor() const { return cursor_; }
  const char* Limit() const { return limit_; }

  // The first byte of the block, and the one before it; a line feed before the first block.
  const char* Begin() const { return block_; }
  char Before() const { return before_; }

  void MoveTo(const char* cursor) { cursor_ = cursor; }

  // Blocks read so far; the one at hand is the last.
  std::uint32_t Blocks() const { return blocks_; }

  // How many times as long as the part in front of the cursor the file is; 1 where its size is not known.
  double Growth() const {
    const std::uint64_t passed = taken_ - static_cast<std::uint64_t>(limit_ - cursor_);
    return size_ > passed && passed > 0 ? static_cast<double>(size_) / static_cast<double>(passed) : 1;
  }

  // The next byte, read on from the file where the block ends; kEnd at the end of the file. A read that fails ends the
  // file.
  int Peek() { return cursor_ != limit_ || Refill() ? static_cast<unsigned char>(*cursor_) : kEnd; }
  int Get() { return cursor_ != limit_ || Refill() ? static_cast<unsigned char>(*cursor_++) : kEnd; }

  // Whether a read has failed, which ended the file.
  bool HasFailed() const { return failed_; }

  // Reads the next block over this one, which must be used up. False at the end of the file.
  bool Refill();

 private:
  static constexpr std::size_t kBlock = 1 << 16;

  InputFile(int handle, std::uint64_t size) : handle_(handle), size_(size) { EndBlock(); }

  std::size_t ReadBlock();
  void EndBlock();

  const int handle_;          // -1: none, the bytes are in memory
  std::string_view memory_;   // what is left of them
  const std::uint64_t size_;  // 0 where it is not known
  char before_ = '\n';
  std::uint64_t taken_ = 0;
  std::uint32_t blocks_ = 0;
  bool ended_ = false;
  bool failed_ = false;
  const char* cursor_ = block_;
  const char* limit_ = block_;
  char block_[kBlock + kScanReach];
};

}  // namespace steprt

#endif
