// Whole files: what each in.stp and in.xml reads as, reports and is written as. With STEPRT_ACCEPT=1 in the environment
// the expected files are written instead.
#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>

#include "support/golden_files.h"
#include "support/proj_schema.h"
#include "support/soundness.h"
#include "support/temp_files.h"

namespace {

using namespace steprt_test;

std::string Lines(const Texts& texts) {
  std::string lines;
  for (const std::string& text : texts) lines += text + "\n";
  return lines;
}

void ExpectFile(const std::filesystem::path& expected, const std::string& bytes) {
  if (getenv("STEPRT_ACCEPT")) std::ofstream(expected, std::ios::binary) << bytes;
  EXPECT_EQ(bytes, BytesOf(expected)) << expected;
}

TEST(Golden, EveryFolderReadsAndWritesAsItsFilesSay) {
  const std::vector<GoldenFile> files = GoldenInputs();
  EXPECT_GE(files.size(), 9u);
  for (const GoldenFile& file : files) {
    const std::filesystem::path folder = file.path.parent_path();
    ProjModel model;
    model.Name(MakeFile(file.path.filename(), file.bytes).c_str());  // a copy, which a write may do no harm to
    const int result = file.form == Form::kXml ? model.ReadXml(nullptr) : model.Read(true, nullptr);
    const Texts reports = TakeReports(model.Name());
    EXPECT_EQ(result, ResultOf(reports)) << file.path;
    ExpectFile(folder / "reports.txt", Lines(reports));
    ExpectFile(folder / "population.txt", Lines(Population(model)));
    std::string out = TempPath("golden.stp");
    model.Write(out.data(), "golden");
    ExpectFile(folder / "out.stp", MaskedBytesOf(out));
    std::string document = TempPath("golden.xml");
    model.WriteXml(document.data(), "golden");
    ExpectFile(folder / "out.xml", MaskedBytesOf(document));
  }
}

}  // namespace
