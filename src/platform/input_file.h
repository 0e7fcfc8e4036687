// A file that is read through one block. The tokeniser scans inside the block, between Cursor and Limit; behind Limit
// stands a line feed, which ends every scan, so that a scan looks for Limit only where it meets one.
#ifndef STEPRT_PLATFORM_INPUT_FILE_H
#define STEPRT_PLATFORM_INPUT_FILE_H

#include <cstddef>

namespace steprt {

class InputFile {
 public:
  static constexpr int kEnd = -1;

  // Opens for reading; null when the file cannot be opened, is a directory, or memory is exhausted. For delete.
  [[nodiscard]] static InputFile* OpenOrNull(const char* name);

  ~InputFile();
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;

  const char* Cursor() const { return cursor_; }
  const char* Limit() const { return limit_; }
  void MoveTo(const char* cursor) { cursor_ = cursor; }

  // The next byte, read on from the file where the block ends; kEnd at the end of the file. A read that fails ends the
  // file.
  int Peek() { return cursor_ != limit_ || Refill() ? static_cast<unsigned char>(*cursor_) : kEnd; }
  int Get() { return cursor_ != limit_ || Refill() ? static_cast<unsigned char>(*cursor_++) : kEnd; }

  // Reads the next block over this one, which must be used up. False at the end of the file.
  bool Refill();

 private:
  static constexpr std::size_t kBlock = 1 << 16;

  explicit InputFile(int handle) : handle_(handle) { block_[0] = '\n'; }

  const int handle_;
  bool ended_ = false;
  const char* cursor_ = block_;
  const char* limit_ = block_;
  char block_[kBlock + 1];
};

}  // namespace steprt

#endif
