// The frame of a written file, byte for byte, and how its name is opened and shown.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <ctime>

#include "support/moment.h"
#include "support/proj_schema.h"
#include "support/temp_files.h"

namespace {

using namespace steprt_test;

TEST(WrittenFrame, ShowsItsNameAndRemarkAndIsWrittenWithoutInstances) {
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

// What the system's own program says, which looks at TZ as well.
std::string DateBySystem(std::time_t time) {
  std::FILE* output = popen(("date -d @" + std::to_string(time) + " '+%-d.%m.%Y %H.%M'").c_str(), "r");
  char line[100] = "";
  EXPECT_NE(std::fgets(line, sizeof line, output), nullptr);
  pclose(output);
  line[std::strcspn(line, "\n")] = '\0';
  return line;
}

// One process, so each row changes the zone while it runs. The days have one and two digits, and so have the months,
// hours and minutes; in some zones it is another day, month or year.
TEST(WrittenFrame, HasTheLocalTimeOfTheCurrentZone) {
  std::string path = TempPath("date.stp");
  for (const std::time_t time : {946684799L, 951782700L, 1002708600L, 1772694480L, 1946711340L, 4102444799L}) {
    for (const char* zone : {"UTC0", "AAA-14", "BBB11:30", "CCC5DDD,M3.2.0,M11.1.0", "EEE-5:45"}) {
      const Moment moment(time, zone);
      STEPwrite(path.data(), "", nullptr, ProjSchema());
      const std::string bytes = BytesOf(path);
      EXPECT_NE(bytes.find("FILE_NAME('" + path + "','" + DateBySystem(time) + "');"), std::string::npos)
          << time << ' ' << zone << bytes;
    }
  }
}

// Longer than any buffer for a name: a component may have 255 bytes, a path more than 4000.
TEST(WrittenFrame, ALongNameIsNeitherCutForOpeningNorForShowing) {
  std::string path = TempPath(std::string(3500, '/'));
  path += std::string(200, '\'');
  EXPECT_EQ(STEPwrite(path.data(), nullptr, nullptr, ProjSchema()), 0);
  const std::string shown = path.substr(0, path.size() - 200) + std::string(400, '\'');
  EXPECT_NE(BytesOf(path + ".stp").find("FILE_NAME('" + shown + "','"), std::string::npos);
}

}  // namespace
