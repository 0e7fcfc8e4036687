#include "support/golden_files.h"

#include <set>

#include "platform/sax.h"
#include "support/temp_files.h"

namespace steprt_test {
namespace {

GoldenFile Load(const std::filesystem::path& path) {
  return {path, path.extension() == ".xml" ? Form::kXml : Form::kClearText, BytesOf(path.string())};
}

}  // namespace

std::vector<GoldenFile> GoldenInputs() {
  std::set<std::filesystem::path> paths;
  for (const auto& folder : std::filesystem::directory_iterator(STEPRT_TEST_GOLDEN)) {
    paths.insert(folder.path() / "in.stp");
    if (steprt::saxService) paths.insert(folder.path() / "in.xml");
  }
  std::vector<GoldenFile> files;
  for (const auto& path : paths) {
    if (std::filesystem::exists(path)) files.push_back(Load(path));
  }
  return files;
}

std::vector<GoldenFile> GoldenFiles(Form form) {
  std::vector<GoldenFile> files = GoldenInputs();
  std::erase_if(files, [form](const GoldenFile& file) { return file.form != form; });
  if (files.empty()) return files;
  const std::filesystem::path golden = STEPRT_TEST_GOLDEN;
  for (const char* name : {"faulty", "sound"})
    files.push_back(Load(golden / name / (form == Form::kXml ? "out.xml" : "out.stp")));
  return files;
}

}  // namespace steprt_test
