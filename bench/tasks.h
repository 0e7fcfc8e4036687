// The tasks that are measured, each with its floor. Each but the last two registers its benchmarks, for populations of
// one size.
#ifndef STEPRT_BENCH_TASKS_H
#define STEPRT_BENCH_TASKS_H

#include <span>
#include <string>

namespace bench {

struct Shape;

void RegisterReads(int records);
void RegisterWrites(int records);
void RegisterDescribed(int records);
void RegisterDestruction(int records);
void RegisterMemory(int records);
void RegisterXml(int records);

// How much dearer a record is in a large population than in one of 100 000.
void RegisterGrowth(int records);

// Lookups and queries in schemas of several sizes, the index against the walk.
void RegisterSchemas();

// How much dearer a file of twice the size is, for each shape; and for the floor, if there is one: false for a bad
// file.
using ShapeFloor = bool (*)(const std::string& path);
void RegisterDoublings(std::span<const Shape> shapes, ShapeFloor floor);

}  // namespace bench

#endif
