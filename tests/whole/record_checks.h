// What must hold for described records whatever a file contains.
#ifndef STEPRT_TESTS_WHOLE_RECORD_CHECKS_H
#define STEPRT_TESTS_WHOLE_RECORD_CHECKS_H

#include <string>

namespace steprt_test {

// Reads the bytes as a file and writes what came of them in both forms. The records come back, each of them, and from
// the second time on clear text is written as it was read.
void CheckRecords(const std::string& bytes);

}  // namespace steprt_test

#endif
