// The floor of a read: a scanner for the populations of this folder and nothing else. It builds what a read through
// the library builds, the same objects with the same lists and texts, and checks nothing.
#ifndef STEPRT_BENCH_READ_FLOOR_H
#define STEPRT_BENCH_READ_FLOOR_H

#include <string>

class STEPheader;

namespace bench {

// Reads the file. The objects join the current model; without one they are chained by `next`. Returns the first one.
STEPheader* ReadFloor(const std::string& path);

}  // namespace bench

#endif
