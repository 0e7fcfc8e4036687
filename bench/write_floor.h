// The floor of a write: the bytes of the library's file, for the populations of this folder and nothing else.
#ifndef STEPRT_BENCH_WRITE_FLOOR_H
#define STEPRT_BENCH_WRITE_FLOOR_H

#include <string>

class STEPheader;

namespace bench {

void WriteFloor(const std::string& path, STEPheader* first);

}  // namespace bench

#endif
