// Values read and written by items, as clear text.
#ifndef STEPRT_TESTS_SUPPORT_ITEMS_H
#define STEPRT_TESTS_SUPPORT_ITEMS_H

#include <string>

#include "steprt/step.h"

namespace steprt_test {

// One value with all that is in it, read by items and printed as clear text. What is no value is printed after a `?`.
std::string ReadItem(STEPtransfer* t, const char* name);

// Writes the value that `text` begins with, printed as ReadItem prints it, and takes it off.
void WriteItem(STEPtransfer* t, const char* name, std::string& text);

// A table of values, one a row.
extern const char* const kItems;

}  // namespace steprt_test

#endif
