// A module that is in the chain of extension modules and has entries number 2 and 3.
#include "steprt/module.h"

namespace {

int Two() { return 22; }

int Three() { return 33; }

const STEPentryFunc kEntries[] = {nullptr, Two, Three};

const STEPentryTable kTable = {3, kEntries};

STEPmodule thisModule;

}  // namespace

const STEPentryTable* STEPentries() { return &kTable; }
