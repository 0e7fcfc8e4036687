// A file that is written through one block. A write that fails sets a flag that stays, and what could not be written is
// dropped; what is put afterwards is tried all the same, so that a file can be ended.
#ifndef STEPRT_PLATFORM_OUTPUT_FILE_H
#define STEPRT_PLATFORM_OUTPUT_FILE_H

#include <cstddef>
#include <string_view>

namespace steprt {

class OutputFile {
 public:
  enum class Sharing { kAll, kDenyWrite };

  // Creates the file or empties it; null when that fails or memory is exhausted. With kDenyWrite an advisory lock is
  // taken before the file is emptied and held until it is closed; null when another such writer has it. For delete.
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

  bool HasFailed() const { return failed_; }

 private:
  static constexpr std::size_t kBlock = 1 << 16;

  OutputFile() = default;
  bool Open(const char* name, Sharing sharing);

  int handle_ = -1;
  bool failed_ = false;
  std::size_t used_ = 0;
  char block_[kBlock];
};

}  // namespace steprt

#endif
