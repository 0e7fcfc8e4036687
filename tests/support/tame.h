// Makes of any population one that a form brings back as it went out.
#ifndef STEPRT_TESTS_SUPPORT_TAME_H
#define STEPRT_TESTS_SUPPORT_TAME_H

#include "support/golden_files.h"
#include "support/proj_schema.h"

namespace steprt_test {

// Instances without a record go, and what a form cannot hold is replaced. See tame.cpp for what that is.
void Tame(ProjModel& model, Form form);

}  // namespace steprt_test

#endif
