// A file that is written through one block. A write that fails sets a flag, and all that is put from then on is
// dropped; End takes the file back to the last whole piece and ends it there.
#ifndef STEPRT_PLATFORM_OUTPUT_FILE_H
#define STEPRT_PLATFORM_OUTPUT_FILE_H

#include <cstddef>
#include <cstdint>
#include <initializer_list>
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
    if (!failed_) ends_[marks_++ % kMarks] = written_ + static_cast<std::int64_t>(used_);
  }

  // Puts the file's last pieces and writes all. After a failure, what stands behind the last mark is cut off first, and
  // pieces before it when the end does not fit the room that they leave. Where the system cannot cut (a pipe, a
  // device), the end goes on a line of its own behind the one that the failure has broken.
  void End(std::initializer_list<std::string_view> pieces);

  bool HasFailed() const { return failed_; }

 private:
  static constexpr std::size_t kBlock = 1 << 16;
  static constexpr std::size_t kMarks = 1 << 13;  // the latest count; a block holds fewer records

  OutputFile() = default;
  bool Open(const char* name, Sharing sharing);
  std::int64_t LastMark(std::int64_t limit) const;
  bool CutTo(std::int64_t size);

  int handle_ = -1;
  bool failed_ = false;
  std::int64_t written_ = 0;
  std::size_t used_ = 0;
  std::size_t marks_ = 0;
  std::int64_t ends_[kMarks];  // the marks, as places in the file; each takes the room of the oldest
  char block_[kBlock];
};

}  // namespace steprt

#endif
