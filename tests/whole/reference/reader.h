// A reader of clear-text files that follows the rules word by word, for the schema of the tests: what a read through
// the library is held against.
#ifndef STEPRT_TESTS_WHOLE_REFERENCE_READER_H
#define STEPRT_TESTS_WHOLE_REFERENCE_READER_H

#include <string>

#include "support/proj_schema.h"

namespace steprt_test {

// What one read is about.
struct ReadCase {
  std::string bytes;
  bool check = false;
  bool probeMakesNothing = false;  // its read function takes a text and returns null
  int atMost = 1 << 20;            // bytes that a call of the system returns
};

// PROBE has the attributes that SetProbe said last.
Outcome ReadByReference(const ReadCase& read);

}  // namespace steprt_test

#endif
