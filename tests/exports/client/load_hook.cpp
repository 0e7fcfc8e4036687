// What the library does when it is loaded, seen from a program that is linked with it.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include "steprt/step.h"

namespace {

constinit const void* asked[8] = {};
constinit int askedCount = 0;

}  // namespace

// The library asks by the address of something of its own which module it is. The program's function comes before that
// of the system.
extern "C" int dladdr(const void* address, Dl_info* info) noexcept {
  static const auto system = reinterpret_cast<int (*)(const void*, Dl_info*)>(dlsym(RTLD_NEXT, "dladdr"));
  if (askedCount < 8) asked[askedCount++] = address;
  return system(address, info);
}

namespace {

constexpr unsigned kProcessAttach = 1;

const int askedAtLoad = askedCount;  // the program's own objects are made after the libraries are loaded

const void* BaseOf(const void* address) {
  Dl_info info;
  return dladdr(address, &info) ? info.dli_fbase : nullptr;
}

bool HasAskedAtItsLoad(const void* base) {
  for (int i = 0; i < askedAtLoad; ++i) {
    if (BaseOf(asked[i]) == base) return true;
  }
  return false;
}

class LoadHook : public testing::Test {
 protected:
  ~LoadHook() override {
    if (library) dlclose(library);
  }

  HINSTANCE library = dlopen(STEPRT_TEST_SONAME, RTLD_NOW | RTLD_NOLOAD);
};

TEST_F(LoadHook, RunsWhenTheLibraryIsLoaded) {
  ASSERT_NE(library, nullptr);
  EXPECT_TRUE(HasAskedAtItsLoad(BaseOf(dlsym(library, "STEPversion"))));
}

TEST_F(LoadHook, SucceedsIfTheLibraryCouldBeMadeKnown) {
  ASSERT_NE(library, nullptr);
  const auto hook = reinterpret_cast<int (*)(HINSTANCE, unsigned, void*)>(dlsym(library, "DllMain"));
  ASSERT_NE(hook, nullptr);
  for (const unsigned other : {0u, 2u, 3u, 17u}) {
    EXPECT_EQ(hook(library, other, nullptr), 1) << other;
    EXPECT_EQ(hook(nullptr, other, nullptr), 1) << other << " without a module";
  }
  EXPECT_EQ(hook(nullptr, kProcessAttach, nullptr), 0);
  EXPECT_EQ(hook(library, kProcessAttach, nullptr), 1);
}

// A library that stood in the chain would be found by any part of its path.
TEST_F(LoadHook, PutsTheLibraryIntoNoChain) {
  for (const char* key : {"libsteprt", "steprt.so", "", "trailing\\"}) {
    STEPlib lib(const_cast<char*>(key));
    EXPECT_FALSE(lib.LibOpen()) << key;
  }
}

}  // namespace
