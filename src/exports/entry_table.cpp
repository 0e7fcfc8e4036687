// The library's own table of numbered entries.
//
// entries.def lists them. Each is declared by its linker symbol, because in C++ a constructor or destructor has no
// address.
#include "steprt/module.h"

#define STEPRT_NAME(symbol, name)

#define STEPRT_ENTRY(number, symbol, name) extern "C" STEPRT_API int Entry##number() __asm__(#symbol);
#include "exports/entries.def"
#undef STEPRT_ENTRY

namespace {

#define STEPRT_ENTRY(number, symbol, name) number,
constexpr int kNumbers[] = {
#include "exports/entries.def"
};
#undef STEPRT_ENTRY

#define STEPRT_ENTRY(number, symbol, name) Entry##number,
constinit const STEPentryFunc kEntries[] = {
#include "exports/entries.def"
};
#undef STEPRT_ENTRY

constexpr int kCount = sizeof kNumbers / sizeof *kNumbers;

constexpr bool NumbersFollow() {
  for (int i = 0; i < kCount; ++i) {
    if (kNumbers[i] != i + 1) return false;
  }
  return true;
}
static_assert(NumbersFollow());

constinit const STEPentryTable kTable = {kCount, kEntries};

}  // namespace

const STEPentryTable* STEPentries() { return &kTable; }
