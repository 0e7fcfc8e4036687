// A file that lies in memory and has a name under which the library opens it.
#ifndef STEPRT_FUZZ_MEMORY_FILE_H
#define STEPRT_FUZZ_MEMORY_FILE_H

#include <cstddef>
#include <string>

namespace fuzz {

class MemoryFile {
 public:
  MemoryFile();
  ~MemoryFile();
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;

  void Fill(const void* data, std::size_t size);
  std::string Contents() const;

  // It has a dot, so that the library adds no ending.
  char* Name() { return name_.data(); }

 private:
  const int handle_;
  std::string name_;
};

}  // namespace fuzz

#endif
