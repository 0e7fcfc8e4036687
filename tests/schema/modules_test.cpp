// What the layer of modules knows of those that are loaded: their paths, and which of them an address lies in.
#include "platform/modules.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

#include "support/module_files.h"
#include "support/temp_files.h"

namespace {

namespace fs = std::filesystem;
using steprt_test::ModuleFiles;

std::string PathOf(HINSTANCE module) {
  char room[1000];
  steprt::ModulePath(module, room, sizeof room);
  return room;
}

class Modules : public testing::Test {
 protected:
  ModuleFiles files;
};

TEST_F(Modules, APathThatWasRelativeIsKnownInFull) {
  const fs::path before = fs::current_path();
  for (const char* name : {"below/relative.so", "./plain.so"}) {
    const std::string path = fs::canonical(files.Copy("chained", name)).string();
    fs::current_path(files.Folder());
    HINSTANCE module = files.Load(name);
    fs::current_path(before);
    EXPECT_EQ(PathOf(module), path);
    char room[11];
    steprt::ModulePath(module, room, sizeof room);
    EXPECT_EQ(room, path.substr(0, 10));
  }
}

// The loader then knows no folder. In a process of its own, whose folder is the one that goes.
TEST_F(Modules, APathIsKnownInFullWhenTheFolderItWasRelativeToHasGone) {
  const std::string path = fs::canonical(files.Copy("chained", "above.so")).string();
  const std::string gone = files.Folder() + "/gone";
  fs::create_directory(gone);
  const auto load = [&] {
    fs::current_path(gone);
    fs::remove(gone);
    return files.Load("../above.so");
  };
  EXPECT_EXIT(std::_Exit(PathOf(load()) == path ? 0 : 1), testing::ExitedWithCode(0), "");
}

// Then the loader's own name, which is not cut. No file can be opened while no handle is free.
TEST_F(Modules, APathStaysRelativeWhereTheSystemDoesNotTellWhatIsMapped) {
  const fs::path before = fs::current_path();
  files.Copy("chained", "below/relative.so");
  fs::current_path(files.Folder());
  HINSTANCE module = files.Load("below/relative.so");
  fs::current_path(before);
  rlimit handles;
  ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &handles), 0);
  const rlimit none = {0, handles.rlim_max};
  setrlimit(RLIMIT_NOFILE, &none);
  const std::string path = PathOf(module);
  setrlimit(RLIMIT_NOFILE, &handles);
  EXPECT_EQ(path, "below/relative.so");
}

TEST_F(Modules, APathThatIsAskedForLeavesNoFileOpen) {
  const fs::path before = fs::current_path();
  files.Copy("chained", "asked.so");
  fs::current_path(files.Folder());
  HINSTANCE module = files.Load("./asked.so");
  fs::current_path(before);
  const int handle = steprt_test::NextHandle();
  EXPECT_NE(PathOf(module), "");
  EXPECT_EQ(steprt_test::NextHandle(), handle);
}

TEST_F(Modules, AHandleThatNoModuleHasIsNotReleased) {
  HINSTANCE module = steprt::LoadModule(files.Copy("chained", "once.so").c_str());
  EXPECT_TRUE(steprt::ReleaseModule(module));
  EXPECT_FALSE(steprt::ReleaseModule(module));
  EXPECT_FALSE(steprt::ReleaseModule(nullptr));
}

TEST(ModuleChain, AnObjectOutsideOfModulesJoinsNothing) {
  static STEPmodule inTheProgram;
  const STEPmodule onTheStack;
  EXPECT_EQ(onTheStack.module, nullptr);
  EXPECT_EQ(inTheProgram.module, nullptr);
  EXPECT_EQ(steprt::FirstModule(), nullptr);
}

// What a program is called is its caller's choice: here, the name of a module that is loaded.
TEST(ModuleChain, AProgramWithTheNameOfAModuleIsStillNone) {
  char name[] = "libc.so.6";
  char filter[] = "--gtest_filter=ModuleChain.AnObjectOutsideOfModulesJoinsNothing";
  char* const arguments[] = {name, filter, nullptr};
  const pid_t child = fork();
  if (child == 0) {
    execv("/proc/self/exe", arguments);
    std::_Exit(2);
  }
  int status = -1;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  EXPECT_EQ(status, 0);
}

}  // namespace
