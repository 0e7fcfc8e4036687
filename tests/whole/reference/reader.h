// A reader of clear-text files that follows the rules word by word, for the schema of the tests: what a read through
// the library is held against.
#ifndef STEPRT_TESTS_WHOLE_REFERENCE_READER_H
#define STEPRT_TESTS_WHOLE_REFERENCE_READER_H

#include "whole/reference/rows.h"

namespace steprt_test {

Outcome ReadByReference(const ReadCase& read);

}  // namespace steprt_test

#endif
