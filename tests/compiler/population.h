// A file of ISO 10303-21 as trees, read by the strict scanner of exchange/, which shares no code with the library's
// reader. Two files with the same trees hold the same.
#ifndef STEPRT_TESTS_COMPILER_POPULATION_H
#define STEPRT_TESTS_COMPILER_POPULATION_H

#include <string>
#include <vector>

namespace steprt_test {

// A value, or a record or part: a keyword with its values.
struct Tree {
  // K keyword, L list, T text (decoded), N number, E enumerator, B binary, R reference, and the characters `$` and `*`.
  char kind = 'L';
  std::string text;  // of a keyword, a text, an enumerator or a binary
  double number = 0;
  std::size_t record = 0;  // that a reference is to: its place in the file, from 1; 0 if there is none
  std::vector<Tree> members{};

  bool operator==(const Tree&) const = default;
};

std::string Print(const Tree& tree);

struct FilePopulation {
  std::vector<Tree> records;        // each a list of parts, one if it is not complex; in the order of the file
  std::vector<std::string> faults;  // code and line
};

FilePopulation PopulationOfFile(const std::string& path);

}  // namespace steprt_test

#endif
