#include "support/golden_files.h"

#include <algorithm>

#include "platform/sax.h"
#include "support/temp_files.h"

namespace steprt_test {
namespace {

GoldenFile Load(const std::filesystem::path& path) {
  return {path, path.extension() == ".xml" ? Form::kXml : Form::kClearText, BytesOf(path.string())};
}

std::vector<GoldenFile> LoadInputs() {
  std::vector<GoldenFile> files;
  for (const auto& entry : std::filesystem::directory_iterator(STEPRT_TEST_GOLDEN)) {
    for (const char* name : {"in.stp", "in.xml"}) {
      const std::filesystem::path path = entry.path() / name;
      if (std::filesystem::exists(path)) files.push_back(Load(path));
    }
  }
  const auto isOut = [](const GoldenFile& file) { return file.form == Form::kXml && !steprt::saxService; };
  files.erase(std::remove_if(files.begin(), files.end(), isOut), files.end());
  std::sort(files.begin(), files.end(), [](const auto& a, const auto& b) { return a.path < b.path; });
  return files;
}

}  // namespace

const std::vector<GoldenFile>& GoldenInputs() {
  static const std::vector<GoldenFile> files = LoadInputs();
  return files;
}

std::vector<GoldenFile> GoldenFiles(Form form) {
  std::vector<GoldenFile> files;
  for (const GoldenFile& file : GoldenInputs()) {
    if (file.form == form) files.push_back(file);
  }
  if (files.empty()) return files;
  const std::filesystem::path golden = STEPRT_TEST_GOLDEN;
  for (const char* name : {"faulty", "sound"})
    files.push_back(Load(golden / name / (form == Form::kXml ? "out.xml" : "out.stp")));
  return files;
}

}  // namespace steprt_test
