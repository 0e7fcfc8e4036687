// A file that is written through one block.
//
// A write that fails sets a flag, and everything that is put from then on is dropped, so the writers need not check
// each piece. At the end the file is cut back to its last whole record and ended there:
//
//   file->CutBackToMark();
//   file->PutTail(tail);
//   file->MakeTailFit(tail);
#ifndef STEPRT_PLATFORM_OUTPUT_FILE_H
#define STEPRT_PLATFORM_OUTPUT_FILE_H

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <string_view>

namespace steprt {

struct Replacement;

class OutputFile {
 public:
  enum class Sharing { kAll, kDenyWrite };

  // Creates the file or empties it. Returns null when that fails, as with a FIFO that nobody reads, or when memory runs
  // out. An advisory lock is taken before the file is emptied and held until it is closed: writers with kAll share it,
  // one with kDenyWrite has it alone, and a writer that cannot have it gets null. Release the file with delete.
  [[nodiscard]] static OutputFile* CreateOrNull(const char* name, Sharing sharing);

  // Creates a file that takes the place of that name only in Commit, and is removed if there is none. Until then it is
  // beside that file under a name of its own. A symbolic link stays one. What is no regular file, such as a device, is
  // written directly. Locks and failures are those of CreateOrNull with kDenyWrite.
  [[nodiscard]] static OutputFile* CreateReplacementOrNull(const char* name);

  // Ends a file of CreateReplacementOrNull. Returns false if a write has failed; the file of that name is then as it
  // was.
  [[nodiscard]] bool Commit();

  // Writes what the block holds and closes the file.
  ~OutputFile();
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;

  void Put(char c) {
    *Buffer(1) = c;
    ++used_;
  }
  void Put(std::string_view text) {
    if (text.size() > kBlock - used_) return PutInPieces(text);
    text.copy(block_ + used_, text.size());
    used_ += text.size();
  }

  // The same for a literal of a few characters, without a call.
  template <std::size_t kSize>
  void PutLiteral(const char (&literal)[kSize]) {
    std::memcpy(Buffer(kSize), literal, kSize - 1);
    used_ += kSize - 1;
  }

  // Returns a buffer of `count` characters, at most 64, to print into. Advance marks the end of what was printed.
  char* Buffer(std::size_t count) {
    if (kBlock - used_ < count) Flush();
    return block_ + used_;
  }
  void Advance(const char* end) { used_ = static_cast<std::size_t>(end - block_); }

  // Writes what the block holds.
  void Flush();

  // Marks what was put so far as whole records.
  void Mark() {
    if (!failed_) ends_[marks_++ % kMarks] = written_ + static_cast<std::int64_t>(used_);
  }

  // After a failure, cuts off all that follows the last mark, and lets writes go on. Where the system cannot cut (a
  // pipe, a device), ends the line that the failure has broken instead. Without a failure it does nothing.
  void CutBackToMark();

  // Writes the last pieces of the file and all that the block holds.
  void PutTail(std::initializer_list<std::string_view> tail);

  // If a file that was cut has no space for the tail, removes as many records as the tail needs and puts it again.
  // It never removes the head of the file. It does nothing if the file was not cut: a file that was sound until its
  // tail keeps its records.
  void MakeTailFit(std::initializer_list<std::string_view> tail);

  bool HasFailed() const { return failed_; }

 private:
  static constexpr std::size_t kBlock = 1 << 16;
  static constexpr std::size_t kMarks = 1 << 13;  // the latest ones are kept; a block holds fewer records

  OutputFile() = default;
  void PutInPieces(std::string_view text);
  bool Open(const char* name, Sharing sharing);
  std::int64_t LastMark(std::int64_t limit) const;
  bool CutTo(std::int64_t size);

  int handle_ = -1;
  Replacement* replacement_ = nullptr;  // owned
  bool failed_ = false;
  bool isCut_ = false;
  std::int64_t written_ = 0;
  std::size_t used_ = 0;
  std::size_t marks_ = 0;
  std::int64_t ends_[kMarks];  // the marks, as places in the file; each replaces the oldest
  char block_[kBlock];
};

}  // namespace steprt

#endif
