// The hosts that the tests can run in: each trait changes something of the process that the library must not see.
#ifndef STEPRT_TESTS_HOST_HOST_H
#define STEPRT_TESTS_HOST_HOST_H

#include <string>

namespace steprt_test {

// From now on each test runs in a host of these traits, "comma,upward" for instance. False, with the trouble told, for
// a trait that is unknown or that this machine cannot be given.
bool UseHost(const std::string& traits);

}  // namespace steprt_test

#endif
