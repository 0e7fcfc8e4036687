// The frame of a written file, byte for byte, and how its name is opened and shown.
#include <gtest/gtest.h>

#include "platform/clock.h"
#include "support/proj_schema.h"
#include "support/temp_files.h"

namespace {

using namespace steprt_test;

TEST(WrittenFrame, ShowsItsNameAndRemarkAndStandsAloneWithoutInstances) {
  const std::string folder = TempPath("");
  MakeFile("w\\it's.stp", std::string(100000, 'x'));
  std::string path = folder + "w\\it's";
  EXPECT_EQ(STEPwrite(path.data(), "a 'remark'", nullptr, ProjSchema()), 0);
  EXPECT_EQ(MaskedBytesOf(path + ".stp"),
            "ISO-10303-21;\n\nHEADER;\n"
            "FILE_DESCRIPTION(('PROJ model', 'TOVARIN version 7, 7, 10, 29','QVN','a 'remark''));\n"
            "FILE_NAME('" +
                folder +
                "w\\it''s','<date>');\n"
                "FILE_SCHEMA(('PROJ'));\nENDSEC;\n\nDATA;\nENDSEC;\n\nEND-ISO-10303-21;\n");
  EXPECT_STREQ(STEPversion(), "7, 7, 10, 29");
  EXPECT_EQ(BytesOf(path), "(none)");
}

TEST(WrittenFrame, BearsTheLocalTime) {
  const auto shown = [](const steprt::DateAndTime& d) {
    char text[40];
    std::snprintf(text, sizeof text, "'%d.%02d.%d %02d.%02d'", d.day, d.month, d.year, d.hour, d.minute);
    return std::string(text);
  };
  std::string path = TempPath("date.stp");
  const std::string before = shown(steprt::LocalNow());
  STEPwrite(path.data(), "", nullptr, ProjSchema());
  const std::string after = shown(steprt::LocalNow());
  const std::string bytes = BytesOf(path);
  EXPECT_TRUE(bytes.find(before) != std::string::npos || bytes.find(after) != std::string::npos) << bytes;
}

// Longer than any room for a name: a component may have 255 bytes, a path more than 4000.
TEST(WrittenFrame, ALongNameIsNeitherCutForOpeningNorForShowing) {
  std::string path = TempPath(std::string(3500, '/'));
  path += std::string(200, '\'');
  EXPECT_EQ(STEPwrite(path.data(), nullptr, nullptr, ProjSchema()), 0);
  const std::string shown = path.substr(0, path.size() - 200) + std::string(400, '\'');
  EXPECT_NE(BytesOf(path + ".stp").find("FILE_NAME('" + shown + "','"), std::string::npos);
}

}  // namespace
