// A module in no chain whose table has a hole at number 4.
#include "steprt/module.h"

namespace {

int Two() { return 2; }

int Three() { return 3; }

int Five() { return 5; }

const STEPentryFunc kEntries[] = {nullptr, Two, Three, nullptr, Five};

const STEPentryTable kTable = {5, kEntries};

}  // namespace

const STEPentryTable* STEPentries() { return &kTable; }
