#include "support/module_files.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

namespace steprt_test {

namespace fs = std::filesystem;

bool IsLoaded(const std::string& path) {
  void* module = dlopen(path.c_str(), RTLD_LAZY | RTLD_NOLOAD);
  if (module) dlclose(module);
  return module != nullptr;
}

ModuleFiles::ModuleFiles() {
  std::string pattern = (fs::temp_directory_path() / "modXXXXXX").string();
  EXPECT_NE(mkdtemp(pattern.data()), nullptr);
  folder_ = pattern;
}

ModuleFiles::~ModuleFiles() {
  for (HINSTANCE each : loaded_) dlclose(each);
  std::error_code ignored;
  fs::remove_all(folder_, ignored);
}

// A copy that replaces another gets a file of its own: the loader knows files by their inode.
std::string ModuleFiles::Copy(const std::string& module, const std::string& name) const {
  const fs::path path = fs::path(folder_) / name;
  fs::create_directories(path.parent_path());
  fs::remove(path);
  fs::copy_file(fs::path(STEPRT_TEST_MODULES) / (module + ".so"), path);
  return path.string();
}

HINSTANCE ModuleFiles::Load(const std::string& path) {
  HINSTANCE module = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  EXPECT_NE(module, nullptr) << dlerror();
  if (module) loaded_.push_back(module);
  return module;
}

void ModuleFiles::Release(HINSTANCE module) {
  const auto place = std::find(loaded_.begin(), loaded_.end(), module);
  ASSERT_NE(place, loaded_.end());
  loaded_.erase(place);
  dlclose(module);
}

}  // namespace steprt_test
