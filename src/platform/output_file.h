// A file that is written through one block. A write that fails sets a flag, and all that is put from then on is
// dropped, until CutBack takes the file back to the last whole piece, so that it can be ended.
#ifndef STEPRT_PLATFORM_OUTPUT_FILE_H
#define STEPRT_PLATFORM_OUTPUT_FILE_H

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace steprt {

class OutputFile {
 public:
  enum class Sharing { kAll, kDenyWrite };

  // Creates the file or empties it; null when that fails, as with a FIFO that nobody reads, or memory is exhausted. An
  // advisory lock is taken before the file is emptied and held until it is closed: writers with kAll share it, one with
  // kDenyWrite has it alone, and a writer that cannot have it gets null. For delete.
  [[nodiscard]] static OutputFile* CreateOrNull(const char* name, Sharing sharing);

  // Writes what the block holds and closes the file.
  ~OutputFile();
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;

  void Put(char c) { *Room(1) = c, ++used_; }
  void Put(std::string_view text);

  // Room for `count` characters, 64 at most, to print into; Advance says where the print ended.
  char* Room(std::size_t count) {
    if (kBlock - used_ < count) Flush();
    return block_ + used_;
  }
  void Advance(const char* end) { used_ = static_cast<std::size_t>(end - block_); }

  // Writes what the block holds.
  void Flush();

  // What was put so far is made of whole pieces.
  void Mark() {
    if (marks_ == kMarks) --marks_;
    ends_[marks_++] = static_cast<std::uint32_t>(used_);
  }

  // After a failure, cuts what was written behind the last mark off the file. Where the system cannot (a pipe, a
  // device), ends the line that the failure has broken. Either way what is put next is tried again.
  void CutBack();

  bool HasFailed() const { return failed_; }

 private:
  static constexpr std::size_t kBlock = 1 << 16;
  static constexpr std::size_t kMarks = 1 << 12;  // in one block; of more the latest counts

  OutputFile() = default;
  bool Open(const char* name, Sharing sharing);

  int handle_ = -1;
  bool failed_ = false;
  std::int64_t written_ = 0;
  std::int64_t whole_ = 0;  // of what was written, up to the last mark
  std::size_t used_ = 0;
  std::size_t marks_ = 0;
  std::uint32_t ends_[kMarks];  // the marks in the block, rising
  char block_[kBlock];
};

}  // namespace steprt

#endif
