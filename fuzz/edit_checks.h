// Checks of edits, which the target `edit` and the tests share.
#ifndef STEPRT_FUZZ_EDIT_CHECKS_H
#define STEPRT_FUZZ_EDIT_CHECKS_H

#include <string>

namespace fuzz {

// Takes the bytes as a sequence of operations on two models of one schema, their instances, aggregates, selects and
// strings. Each has a plain counterpart, and the two are compared after every step.
void CheckEdits(const std::string& bytes);

}  // namespace fuzz

#endif
