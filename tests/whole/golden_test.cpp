// Whole files: what each in.stp reads as, reports and is written as. With STEPRT_ACCEPT=1 in the environment the
// expected files are written instead.
#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>

#include "support/proj_schema.h"
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
  int count = 0;
  for (const auto& entry : std::filesystem::directory_iterator(STEPRT_TEST_GOLDEN)) {
    const std::filesystem::path in = entry.path() / "in.stp";
    if (!std::filesystem::exists(in)) continue;
    ++count;
    ProjModel model;
    const int errors = model.Read(true, in.string().data());
    const Texts reports = TakeReports(in);
    EXPECT_EQ(errors, static_cast<int>(reports.size())) << in;
    ExpectFile(entry.path() / "reports.txt", Lines(reports));
    ExpectFile(entry.path() / "population.txt", Lines(Population(model)));
    std::string out = TempPath(entry.path().filename().string() + ".stp");
    model.Write(out.data(), "golden");
    ExpectFile(entry.path() / "out.stp", MaskedBytesOf(out));
    std::string document = TempPath(entry.path().filename().string() + ".xml");
    model.WriteXml(document.data(), "golden");
    ExpectFile(entry.path() / "out.xml", MaskedBytesOf(document));
  }
  EXPECT_EQ(count, 2);
}

}  // namespace
