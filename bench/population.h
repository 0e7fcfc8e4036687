// Files to read: populations made from a seed, so that every run has the same bytes.
#ifndef STEPRT_BENCH_POPULATION_H
#define STEPRT_BENCH_POPULATION_H

#include <cstddef>
#include <string>

namespace bench {

// How the records are numbered, and in which order they come.
enum class Order {
  kAscending,   // 1, 2, 3, ..., every reference to a number already passed
  kShuffled,    // the same records in random order, so that half of the references point forward
  kDescending,  // n, n - 1, ..., 1
  kSparse,      // ascending with random gaps, 32 on average
  kStride       // 4096, 8192, ...; 524287 records at most
};

// One file of walls with their geometry, about 63 bytes a record: half of it points with three reals, of which 30 %
// are whole, 50 % have one to three decimals and 20 % sixteen digits.
struct Population {
  Order order;
  int records;
  std::string path;
  std::size_t bytes;
};

// The file, made at its first use.
const Population& PopulationFile(Order order, int records);

const char* OrderName(Order order);

// Where the files lie; the folder must exist.
void SetDataFolder(const std::string& folder);
std::string DataFile(const std::string& name);

// Removes the files made so far.
void RemovePopulationFiles();

}  // namespace bench

#endif
