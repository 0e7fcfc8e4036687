// Files for reads that are compared: mostly sound, with something wrong here and there.
#ifndef STEPRT_TESTS_WHOLE_REFERENCE_GENERATOR_H
#define STEPRT_TESTS_WHOLE_REFERENCE_GENERATOR_H

#include "whole/reference/reader.h"

namespace steprt_test {

// The same for the same seed. Sets PROBE.
ReadCase MakeReadCase(unsigned seed);

}  // namespace steprt_test

#endif
