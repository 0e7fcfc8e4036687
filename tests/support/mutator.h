// Damages files by chance, the same way for the same seed: by bytes, or by tokens, so that the damage gets past the
// first look of a reader.
#ifndef STEPRT_TESTS_SUPPORT_MUTATOR_H
#define STEPRT_TESTS_SUPPORT_MUTATOR_H

#include <string>
#include <vector>

namespace steprt_test {

// What no reader likes to meet.
const std::vector<std::string>& HostileWords();

// One of the files, damaged in one to four places. Half of the seeds, the odd ones, go by tokens.
std::string Mutated(const std::vector<std::string>& files, unsigned seed);

}  // namespace steprt_test

#endif
