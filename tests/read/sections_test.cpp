// The sections of a file: keywords, their order, the header's records, the names of schemas, where a read ends.
#include <gtest/gtest.h>

#include "support/proj_schema.h"
#include "support/table.h"
#include "support/temp_files.h"
#include "whole/reference/reader.h"

namespace {

using namespace steprt_test;

void ExpectRows(const std::string& file, bool check) {
  for (Texts& row : TableOf(file, 3)) {
    std::string& bytes = row[0];
    if (const auto at = bytes.find('~'); at != bytes.npos)
      bytes.replace(at, 1, "HEADER;ENDSEC;DATA;#1=PERSON(1);ENDSEC;");
    if (const auto at = bytes.find('^'); at != bytes.npos)
      bytes.replace(at, 1, "ENDSEC;DATA;#1=PERSON(1);ENDSEC;ENDSTEP;");
    const Texts reports = ItemsOf(row[2]);
    const Outcome expected = {static_cast<int>(reports.size()), reports, ItemsOf(row[1])};
    EXPECT_EQ(ReadBytes(bytes, check), expected) << bytes;
    EXPECT_EQ(ReadByReference({.bytes = bytes, .check = check}), expected) << bytes;
  }
}

// The rows hold the reference reader, too.
TEST(Sections, GiveWhatTheirRowsSay) {
  ExpectRows("read/sections.rows", false);
  ExpectRows("read/checked_sections.rows", true);
  EXPECT_EQ(ReadBytes(""), (Outcome{1, {"(1) [Read]Not a STEP file"}, {}}));
}

TEST(Sections, AFileThatIsNotThereOrIsAFolderIsNotFound) {
  for (std::string path : {"/nowhere/at/all.stp", "/tmp/."}) {
    EXPECT_EQ(STEPread(path.data(), ProjSchema(), false), 1);
    EXPECT_EQ(TakeReports(path), Texts{"(1) [Read]File not found"});
  }
}

}  // namespace
