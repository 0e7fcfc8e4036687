// Checks of numbers and of the scanners of XML values, which the target `values` and the tests share. What the library
// makes is held against the C library in the locale "C" and in round-to-nearest, whatever the host has.
#ifndef STEPRT_FUZZ_VALUE_CHECKS_H
#define STEPRT_FUZZ_VALUE_CHECKS_H

#include <string>

namespace fuzz {

// As a number, read in every way.
void CheckWord(const std::string& word);

// Printed, and read again.
void CheckReal(double value);
void CheckInt(int value);

// Sixteen bytes as numbers and the others as a word, also in the other rounding modes and as values of XML.
void CheckValues(const std::string& bytes);

}  // namespace fuzz

#endif
