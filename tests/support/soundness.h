// What holds after every transfer, whatever was read.
#ifndef STEPRT_TESTS_SUPPORT_SOUNDNESS_H
#define STEPRT_TESTS_SUPPORT_SOUNDNESS_H

#include "steprt/model.h"
#include "support/reports.h"

namespace steprt_test {

// The result of a read that gave these reports, in the form of TakeReports: each counts, but in XML the words of the
// service set -1, and an entity without its number is told and not counted.
int ResultOf(const Texts& reports);

// The list ends where its end is thought to be, its instances are the model's, and the transfer is over.
void ExpectSound(STEPmodel& model);

}  // namespace steprt_test

#endif
