// The library's numbered entries, fetched from the built library as a client fetches those of a module.
#include <cxxabi.h>
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <climits>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include "platform/modules.h"
#include "steprt/library.h"
#include "support/table.h"

namespace {

// Numbers 1 to 60, which are fixed.
const steprt_test::Texts kFixed = steprt_test::ItemsOf(
    "DllMain & rSTEPtext & rSTEPint & rSTEPenum & rSTEPbool & rSTEPreal & xrSTEPref & xrSTEPaggr & xrSTEPaggrPrim & "
    "xrSTEPaggrEnum & xrSTEPtextAggr & STEPread & xwSTEPref & xwSTEPaggr & xwSTEPaggrPrim & xwSTEPaggrEnum & "
    "xwSTEPtextAggr & wSTEPtext & wSTEPreal & wSTEPint & wSTEPenum & wSTEPbool & STEPwrite & STEPversion & "
    "ExtractTypes & rSTEPlog & wSTEPlog & Copy(char*, char const*, int) & AutoId(int, char const*) & "
    "DeleteSTEPlist(STEPlist**) & CurrentModel() & CurrentModel(STEPmodel*) & STEPaggr::Prepend(STEPheader*) & "
    "STEPaggr::Append(STEPheader*) & STEPaggr::InsertBefore(STEPheader*, STEPheader*) & "
    "STEPaggr::InsertAfter(STEPheader*, STEPheader*) & STEPaggr::Delete(STEPheader*) & STEPaggr::Delete(int) & "
    "STEPaggr::GetMemberCount() & STEPaggr::IsMember(STEPheader*) & STEPaggr::Prepend(double) & "
    "STEPaggr::Append(double) & STEPaggr::Successor(STEPheader*) & STEPaggr::Predecessor(STEPheader*) & "
    "STEPaggr::FindFirst(int) & STEPheader::STEPheader(STEPheader const&) & STEPheader::STEPheader(void*) & "
    "STEPlib::STEPlib(char*) & STEPlib::STEPlib(void*) & STEPmodel::STEPmodel(STEPmodel const&) & "
    "STEPmodel::STEPmodel(int) & STEPmodel::STEPmodel(STEPmodel*) & STEPselect::STEPselect() & "
    "STEPstring::STEPstring(STEPstring const&) & STEPstring::STEPstring(char const*) & STEPstring::STEPstring() & "
    "STEPheader::~STEPheader() & STEPlib::~STEPlib() & rSTEPsel & wSTEPsel");

constexpr int kFixedCount = 60;

struct Listed {
  int number;
  const char* symbol;
  const char* name;
};

const Listed kListed[] = {
#define STEPRT_ENTRY(number, symbol, name) {number, #symbol, name},
#define STEPRT_NAME(symbol, name) {0, #symbol, name},
#include "exports/entries.def"
#undef STEPRT_ENTRY
#undef STEPRT_NAME
};

std::string Demangled(const char* symbol) {
  int status = 0;
  const std::unique_ptr<char, void (*)(void*)> name(abi::__cxa_demangle(symbol, nullptr, nullptr, &status), std::free);
  return status == 0 ? name.get() : symbol;
}

// A variable or function of C linkage is its own name; __cxa_demangle would take it for a type.
std::string NameOf(const char* symbol) { return std::strncmp(symbol, "_Z", 2) == 0 ? Demangled(symbol) : symbol; }

std::string NameAt(const void* address) {
  Dl_info info;
  return address && dladdr(address, &info) && info.dli_saddr == address ? NameOf(info.dli_sname) : "nothing";
}

class EntryTable : public testing::Test {
 protected:
  ~EntryTable() override {
    if (library) dlclose(library);
  }

  HINSTANCE library = dlopen(STEPRT_TEST_LIBRARY, RTLD_NOW | RTLD_LOCAL);
};

class Lib : public STEPlib {
 public:
  explicit Lib(HINSTANCE module) : STEPlib(module) {}
  using STEPlib::LoadFunct;
};

TEST_F(EntryTable, ATableFilledFromTheLibraryStartsWithNumber2) {
  ASSERT_NE(library, nullptr) << dlerror();
  STEPlib::Entry table[kFixedCount - 1] = {};
  Lib lib(library);
  ASSERT_EQ(lib.LoadFunct(table, kFixedCount - 1), 1);
  EXPECT_EQ(NameAt(reinterpret_cast<const void*>(steprt::FindEntry(library, 1))), "DllMain");
  for (int number = 2; number <= kFixedCount; ++number) {
    EXPECT_EQ(NameAt(reinterpret_cast<const void*>(table[number - 2])), kFixed.at(static_cast<std::size_t>(number - 1)))
        << number;
  }
}

TEST_F(EntryTable, EveryNumberReturnsWhatTheListSays) {
  ASSERT_NE(library, nullptr) << dlerror();
  int last = 0;
  for (const Listed& each : kListed) {
    EXPECT_EQ(NameOf(each.symbol), each.name) << each.symbol;
    EXPECT_NE(dlsym(library, each.symbol), nullptr) << each.name;
    if (each.number == 0) continue;
    EXPECT_EQ(each.number, ++last) << each.name;
    const auto* address = reinterpret_cast<const void*>(steprt::FindEntry(library, each.number));
    EXPECT_EQ(address, dlsym(library, each.symbol)) << each.number << ", " << each.name;
  }
  EXPECT_GT(last, kFixedCount);
  for (const int none : {INT_MIN, -1, 0, last + 1, INT_MAX})
    EXPECT_EQ(steprt::FindEntry(library, none), nullptr) << none;
}

}  // namespace
