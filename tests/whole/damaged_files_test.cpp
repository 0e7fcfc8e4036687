// Files cut at every byte, devices that fail at every block, reads that come in pieces: each gives what the bytes that
// arrived give, and the count of errors is that of the reports.
#include <gtest/gtest.h>

#include <cerrno>

#include "support/failing_new.h"
#include "support/faulty_calls.h"
#include "support/proj_schema.h"
#include "support/temp_files.h"

namespace {

using namespace steprt_test;

const std::string kFiles[] = {
    "ISO-10303-21;\nHEADER;\nFILE_DESCRIPTION(('a''b'),'2;1');\nFILE_NAME('n','d');\nFILE_SCHEMA(('PROJ','x'));\n"
    "ENDSEC;\nDATA;\n#1 = WALL('it''s',-2.5E+1,#3,(#2,$),(1,2.5),.T.);\n#2=DOOR(#1);\n#3=PERSON(41);\n"
    "#4=SAMPLE('t',-7,0.25,.T.,.U.,.BLUE.,'s',#2,(#1,#9),(1,-2.5),(.GREEN.,.RED.),('a','','it''s'));\n"
    "#9=DOOR($);\nENDSEC;\nEND-ISO-10303-21;\n",
    "STEP;\nDATA;\n#1=WALL((1,(2),3),'x',;\n#1=PERSON('a',#1,$,*);#2=OTHER('x\ny',(;\n#3=SAMPLE(#4,#4,#4);#5 #6=,\n"
    "ENDSEC;HEADER;FILE_SCHEMA((x));ENDSEC;STEP;DATA;#7=DOOR(#7);#8=NOTE('" +
        std::string(260, 'n') + "');ENDSEC;ENDSTEP;",
};

TEST(DamagedFiles, EveryPrefixIsReadToItsEndAndHoldsNothingAfterwards) {
  for (const std::string& file : kFiles) {
    std::size_t instances = ReadBytes("").population.size();
    for (std::size_t size = 0; size <= file.size(); ++size) {
      const long blocks = LiveBlocks();
      {
        const Outcome whole = ReadBytes(file.substr(0, size));
        EXPECT_EQ(whole.result, static_cast<int>(whole.reports.size())) << size;
        EXPECT_GE(whole.population.size(), instances) << "a longer prefix holds no less: " << size;
        instances = whole.population.size();
        const FaultyCalls calls({.interrupted = true, .atMost = [] { return 1; }});
        const Outcome pieces = ReadBytes(file.substr(0, size));
        EXPECT_EQ(pieces.population, whole.population) << size;
        EXPECT_EQ(pieces.reports, whole.reports) << size;
      }
      ASSERT_EQ(LiveBlocks(), blocks) << size;
    }
  }
}

TEST(DamagedFiles, AReadThatFailsEndsTheFileThere) {
  constexpr int kPiece = 23;
  for (const std::string& file : kFiles) {
    bool hasFailed = true;
    for (long failing = 1; hasFailed; ++failing) {
      const Outcome expected = ReadBytes(file.substr(0, static_cast<std::size_t>(failing - 1) * kPiece));
      const FaultyCalls calls({.failing = failing, .error = EIO, .atMost = [] { return kPiece; }});
      const Outcome outcome = ReadBytes(file);
      hasFailed = calls.HasFailed();
      if (!hasFailed) break;
      EXPECT_EQ(outcome.population, expected.population) << failing;
      EXPECT_EQ(outcome.reports, expected.reports) << failing;
    }
  }
}

}  // namespace
