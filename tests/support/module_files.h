// Modules as files of a folder that goes with the test.
#ifndef STEPRT_TESTS_SUPPORT_MODULE_FILES_H
#define STEPRT_TESTS_SUPPORT_MODULE_FILES_H

#include <string>
#include <vector>

#include "steprt/export.h"

namespace steprt_test {

// Whether the module of this path is loaded, by whomever.
bool IsLoaded(const std::string& path);

// Releases at its end what is still loaded.
class ModuleFiles {
 public:
  ModuleFiles();
  ~ModuleFiles();
  ModuleFiles(const ModuleFiles&) = delete;
  ModuleFiles& operator=(const ModuleFiles&) = delete;

  const std::string& Folder() const { return folder_; }

  // A copy of one of the modules of the tests, under a name of its own, which may be in folders; returns its path.
  std::string Copy(const std::string& module, const std::string& name) const;

  HINSTANCE Load(const std::string& path);
  void Release(HINSTANCE module);

 private:
  std::string folder_;
  std::vector<HINSTANCE> loaded_;
};

}  // namespace steprt_test

#endif
