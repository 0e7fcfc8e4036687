// The library's own table of numbered entries. An entry is declared by the symbol that the linker knows, since neither
// a constructor nor a destructor has an address in the language.
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
