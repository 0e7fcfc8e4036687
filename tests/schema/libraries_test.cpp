// STEPlib and STEPmodel::AttachDll: which module is found, which is loaded, and whether a module is gone when its last
// reference should be.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <climits>

#include "platform/modules.h"
#include "steprt/library.h"
#include "steprt/model.h"
#include "support/failing_new.h"
#include "support/module_files.h"

namespace {

using namespace steprt_test;

int Untouched() { return -1; }

class Lib : public STEPlib {
 public:
  explicit Lib(HINSTANCE module) : STEPlib(module) {}
  explicit Lib(const std::string& path) : STEPlib(const_cast<char*>(path.c_str())) {}
  using STEPlib::handle;
  using STEPlib::LoadFunct;
  using STEPlib::open;
  using STEPlib::owned;
};

class Libraries : public testing::Test {
 protected:
  ModuleFiles files;
};

// ---- which module it is --------------------------------------------------------------------------------------------

TEST_F(Libraries, AModuleThatIsNotInTheChainIsLoadedAndReleasedAndAHandleIsOnlyWrapped) {
  const std::string path = files.Copy("holed", "plain.so");
  {
    const Lib lib(path);
    EXPECT_TRUE(lib.open && lib.owned && lib.handle);
    EXPECT_TRUE(IsLoaded(path));
  }
  EXPECT_FALSE(IsLoaded(path));
  HINSTANCE module = files.Load(path);
  for (HINSTANCE wrapped : {module, static_cast<HINSTANCE>(nullptr)}) {
    Lib lib(wrapped);
    EXPECT_EQ(lib.handle, wrapped);
    EXPECT_TRUE(lib.LibOpen());
    EXPECT_FALSE(lib.owned);
    STEPlib::Entry table[] = {Untouched};
    EXPECT_EQ(lib.LoadFunct(table, 1), wrapped ? 1 : 0);
    EXPECT_NE(table[0], &Untouched);
    EXPECT_EQ(lib.LibOpen(), wrapped != nullptr);
  }
  EXPECT_TRUE(IsLoaded(path));
}

TEST_F(Libraries, AModuleThatCannotBeLoadedLeavesAClosedObjectThatFetchesNothing) {
  for (const char* path : {"no/such/module.so", "trailing\\", ""}) {
    Lib lib{std::string(path)};
    EXPECT_FALSE(lib.LibOpen()) << path;
    EXPECT_TRUE(lib.owned) << path;
    EXPECT_EQ(lib.handle, nullptr) << path;
    STEPlib::Entry table[] = {Untouched};
    EXPECT_EQ(lib.LoadFunct(table, 1), 0);
    EXPECT_EQ(lib.LoadFunct(table, 0), 0);
    EXPECT_EQ(table[0], &Untouched);
  }
  EXPECT_FALSE(STEPlib(static_cast<char*>(nullptr)).LibOpen());
}

// Only a match in the chain opens the object here: none of these paths is one of a file. A slash does not separate, and
// of a longer key the 19 last characters count.
TEST_F(Libraries, TheKeyIsSoughtInTheUpperCasedPathsOfTheChain) {
  HINSTANCE older = files.Load(files.Copy("chained", "a/folder/for/all/of/them/first_module.so"));
  const std::string path = files.Copy("chained", "Deep/PlanB.so");
  HINSTANCE module = files.Load(path);
  const std::pair<HINSTANCE, std::vector<std::string>> rows[] = {
      {module,
       {"PlanB.so", "PLANb.SO", "c:\\elsewhere\\planb.so", "x\\nowhere\\PLANB.so", "lanb", "deep/", "Deep/PlanB.so",
        "trailing\\", ""}},
      {older, {"elsewhere/but/of/them/first_module.so"}},
      {nullptr,
       {"planc.so", "not/this/one/atalldeep/planb.so", "elsewhere/planb.so", "not/this/but/another/deep/planb.so",
        "elsewhere/xem/first_module.so", "a/folder/for/all/of/them/second_module.so"}}};
  for (const auto& [found, names] : rows) {
    for (const std::string& name : names) {
      Lib lib(name);
      EXPECT_EQ(lib.LibOpen(), found != nullptr) << name;
      EXPECT_EQ(lib.handle, found) << name;
      EXPECT_EQ(lib.owned, !found) << name;
    }
  }
  EXPECT_TRUE(IsLoaded(path));
  files.Release(module);
  EXPECT_FALSE(IsLoaded(path));
}

TEST_F(Libraries, TheNewestModuleOfTheChainThatMatchesWins) {
  HINSTANCE first = files.Load(files.Copy("chained", "one/same.so"));
  HINSTANCE second = files.Load(files.Copy("chained", "two/same.so"));
  HINSTANCE third = files.Load(files.Copy("chained", "three/same.so"));
  EXPECT_EQ(Lib(std::string("same.so")).handle, third);
  EXPECT_EQ(Lib(std::string("")).handle, third);
  EXPECT_EQ(Lib(std::string("one/same")).handle, first);
  files.Release(second);
  EXPECT_EQ(Lib(std::string("same.so")).handle, third);
  EXPECT_EQ(Lib(std::string("one/same")).handle, first);
  EXPECT_EQ(Lib(std::string("two/same")).handle, nullptr);
  files.Release(third);
  EXPECT_EQ(Lib(std::string("same.so")).handle, first);
  files.Release(first);
  EXPECT_EQ(steprt::FirstModule(), nullptr);
}

// Of a path, 127 characters are looked at.
TEST_F(Libraries, AKeyAfterTheLimitOfALongPathIsNotFound) {
  const std::size_t fill = 127 - files.Folder().size() - 1;
  const std::string inside = std::string(fill - 4, 'f') + "/abc";   // "abc" are the last three that count
  const std::string outside = std::string(fill - 3, 'g') + "/abd";  // "abd" is cut by one
  HINSTANCE first = files.Load(files.Copy("chained", inside));
  files.Load(files.Copy("chained", outside));
  EXPECT_EQ(Lib(std::string("abc")).handle, first);
  EXPECT_FALSE(Lib(std::string("abd")).LibOpen());
}

// ---- entries by number ---------------------------------------------------------------------------------------------

struct Fetch {
  const char* what;
  const char* module;
  int count;
  int result;
  int calls[4];  // what the entries in the table give; 0 for a null
  bool open;
};

const Fetch kFetches[] = {
    {"no entries asked for", "chained", 0, 1, {-1, -1, -1, -1}, true},
    {"fewer than none", "chained", -3, 1, {-1, -1, -1, -1}, true},
    {"the first is number 2", "chained", 1, 1, {22, -1, -1, -1}, true},
    {"all that there are", "chained", 2, 1, {22, 33, -1, -1}, true},
    {"one more than there are", "chained", 3, 0, {22, 33, 0, -1}, false},
    {"a hole in the table", "holed", 4, 0, {2, 3, 0, -1}, false},
    {"a module without a table", "attached", 2, 0, {0, -1, -1, -1}, false},
};

// A missing one releases an owned module, once. The entries of a module that has gone must not be called.
TEST_F(Libraries, EntriesAreFetchedFromNumber2UntilOneIsMissing) {
  for (const Fetch& each : kFetches) {
    const std::string path = files.Copy(each.module, "fetched.so");
    for (const bool isHeld : {true, false}) {
      SCOPED_TRACE(std::string(each.what) + (isHeld ? ", held" : ", owned"));
      HINSTANCE held = isHeld ? files.Load(path) : nullptr;
      for (const bool isOwned : {true, false}) {
        if (!isOwned && !isHeld) continue;
        Lib lib = isOwned ? Lib(path) : Lib(held);
        STEPlib::Entry table[] = {Untouched, Untouched, Untouched, Untouched};
        EXPECT_EQ(lib.LoadFunct(table, each.count), each.result);
        EXPECT_EQ(IsLoaded(path), each.open || isHeld);
        for (int i = 0; i < 4; ++i) {
          EXPECT_EQ(table[i] == nullptr, each.calls[i] == 0) << i;
          const bool isThere = table[i] && isHeld;
          EXPECT_EQ(isThere ? table[i]() : 0, isHeld ? each.calls[i] : 0) << i;
        }
        EXPECT_EQ(lib.LibOpen(), each.open);
        EXPECT_NE(lib.handle, nullptr);
      }
      if (isHeld) files.Release(held);
      EXPECT_FALSE(IsLoaded(path));
    }
  }
}

// The loader searches only what was opened, and a module that comes with another was not.
TEST_F(Libraries, EntriesAreFetchedFromAModuleThatAnotherOneBrought) {
  const std::string path = files.Copy("chained", "chained.so");
  HINSTANCE carrier = files.Load(files.Copy("carrier", "carrier.so"));
  {
    Lib lib(path);
    EXPECT_FALSE(lib.owned);
    STEPlib::Entry table[2] = {Untouched, Untouched};
    ASSERT_TRUE(lib.LoadFunct(table, 2));
    EXPECT_EQ(table[0]() + table[1](), 55);
  }
  EXPECT_TRUE(IsLoaded(path));
  files.Release(carrier);
  EXPECT_FALSE(IsLoaded(path));
}

// ---- release -------------------------------------------------------------------------------------------------------

TEST_F(Libraries, UnloadReleasesAsOftenAsToldAndOnceMoreWhenItOwnsTheModule) {
  const struct {
    bool owned;
    int references;  // beside the object's own
    int count;
    bool loaded;
  } cases[] = {{true, 0, 0, false},  // owned
               {true, 0, -1, false},      {true, 1, 0, true},  {true, 1, 1, false}, {true, 0, 3, false},
               {true, 0, INT_MAX, false},  // so often that it would not end
               {false, 1, 0, true},        // wrapped
               {false, 1, 1, false},      {false, 2, 1, true}, {false, 3, 2, true}, {false, 3, 3, false}};
  for (const auto& each : cases) {
    const std::string path = files.Copy("holed", "unloaded.so");
    HINSTANCE module = nullptr;
    for (int i = 0; i < each.references; ++i) module = dlopen(path.c_str(), RTLD_NOW);
    const long blocks = LiveBlocks();
    Lib* lib = each.owned ? new Lib(path) : new Lib(module);
    lib->UnloadDLL(each.count);
    EXPECT_EQ(LiveBlocks(), blocks) << each.owned << each.references << each.count;
    EXPECT_EQ(IsLoaded(path), each.loaded) << each.owned << each.references << each.count;
    while (IsLoaded(path)) dlclose(module);
  }
}

TEST_F(Libraries, AssignmentCopiesTheFieldsAndReleasesNothing) {
  const std::string first = files.Copy("holed", "first.so");
  {
    const Lib source(files.Copy("holed", "second.so"));
    Lib target(first);
    HINSTANCE held = target.handle;
    EXPECT_EQ(&(static_cast<STEPlib&>(target) = source), &target);
    EXPECT_EQ(target.handle, source.handle);
    EXPECT_TRUE(target.open && target.owned);
    EXPECT_TRUE(IsLoaded(first));
    target.owned = false;  // one of the two lets go
    dlclose(held);
  }
  EXPECT_FALSE(IsLoaded(first));
}

// ---- attached modules ----------------------------------------------------------------------------------------------

// A function of the C library, which the module depends on. It would agree: no model lies at 0.
const char kElsewhere[] = "ffsl";

TEST_F(Libraries, AnAttachedModuleStaysOnlyIfItsEntryAgrees) {
  struct {
    const char* what;
    const char* entry;
    bool attached;
    const char* name;  // of the model, to which the entry sets it
  } const cases[] = {
      {"no entry asked for", nullptr, true, "before"},
      {"it agrees", "Accept", true, "accepted"},
      {"it refuses", "Reject", false, "rejected"},
      {"it is missing", "Absent", false, "before"},
      {"without a name", "", false, "before"},
      {"what the module depends on has none of its entries", kElsewhere, false, "before"},
  };
  for (const auto& each : cases) {
    const std::string path = files.Copy("attached", "attached.so");
    HINSTANCE loaded = files.Load(path);
    EXPECT_NE(dlsym(loaded, kElsewhere), nullptr) << "within reach of the loader";
    files.Release(loaded);
    STEPmodel model;
    model.Name("before");
    HINSTANCE module = model.AttachDll(path.c_str(), each.entry);
    EXPECT_EQ(module != nullptr, each.attached) << each.what;
    EXPECT_STREQ(model.Name(), each.name) << each.what;
    EXPECT_EQ(IsLoaded(path), each.attached) << each.what;
    if (module) dlclose(module);
    EXPECT_FALSE(IsLoaded(path)) << each.what;
  }
}

TEST_F(Libraries, WithoutALibraryNothingIsAttached) {
  STEPmodel model;
  for (const char* path : {"no/such/module.so", "", static_cast<const char*>(nullptr)}) {
    EXPECT_EQ(model.AttachDll(path, nullptr), nullptr);
    EXPECT_EQ(model.AttachDll(path, "Accept"), nullptr);
  }
}

}  // namespace
