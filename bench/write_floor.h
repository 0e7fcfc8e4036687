// The floor of a write: the bytes of the library's file, for the populations of this folder and nothing else.
#ifndef STEPRT_BENCH_WRITE_FLOOR_H
#define STEPRT_BENCH_WRITE_FLOOR_H

#include <cstddef>
#include <memory>
#include <string>

class STEPheader;

namespace bench {

class WriteFloor {
 public:
  // Room for a file of `bytes`. It is there before the time is taken, and used by every write anew.
  explicit WriteFloor(std::size_t bytes);

  // Formats the chain into the one buffer and writes it with one call.
  void Write(const std::string& path, STEPheader* first);

 private:
  std::unique_ptr<char[]> room_;
};

}  // namespace bench

#endif
