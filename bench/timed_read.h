// One read, timed. The objects are destroyed outside of the time.
#ifndef STEPRT_BENCH_TIMED_READ_H
#define STEPRT_BENCH_TIMED_READ_H

#include "population.h"

namespace bench {

enum class Lookup { kLinear, kIndexed };  // without and with STEPmodel::PrepareHash, which is part of the time

double TimeRead(const Population& population, Lookup lookup);
double TimeStandardRead(const Population& population);
double TimeReadFloor(const Population& population);

}  // namespace bench

#endif
