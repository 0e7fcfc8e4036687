// Values as they are in the file: their kinds, what is inside them, and the same values written again, in both forms.
#include "support/items.h"

#include <gtest/gtest.h>

#include "read/attribute_rows.h"
#include "support/temp_files.h"

namespace {

using namespace steprt_test;

constexpr char kA[] = "A";

// What a PROBE read by `read` makes of the data, and the reports.
Texts Read(const std::string& data, const std::function<std::string(STEPtransfer*)>& read) {
  Texts texts;
  const auto readProbe = [&](STEPtransfer* t) -> STEPheader* {
    texts.push_back(read(t));
    return new Entity(kProbe);
  };
  for (const std::string& report : ReadWith(readProbe, data).reports) texts.push_back(report);
  return texts;
}

std::string ReadAll(STEPtransfer* t) {
  std::string text;
  while (rSTEPkind(t, kA) != STEP_END) text += (text.empty() ? "" : ",") + ReadItem(t, kA);
  return text;
}

TEST(Items, AreReadAsTheyAreInTheFile) {
  for (const Texts& row : Table(R"(
    $,*,#7,12,-0.50E+3,'it''s',.T.,"1A"  | $,*,#7,12,-0.50E+3,'it's',.T.,"1A"
    $ 5 * 6                              | $,5,*,6
    0.,+.0,0,-                           | 0.,+.0,0,-
    IFCLABEL('x'),IFCREAL ( 1.5 )        | IFCLABEL('x'),IFCREAL(1.5)
    IFCLABEL\n\x09('x')                    | IFCLABEL('x')
    (),((1.,2.),(),(A(B($))),3)          | (),((1.,2.),(),(A(B($))),3)
    NAME,@x,"",#                         | ?NAME,?@x,"",#
    (NAME,5)                             | (?NAME,5)
    1,,2,=                               | 1,2,?=
  )",
                                2)) {
    EXPECT_EQ(Read("#1=PROBE(" + row[0] + ");", ReadAll), Texts{row[1]}) << row[0];
  }
}

// Every token once across the border of two blocks.
TEST(Items, KeepTheirTextAcrossBlocks) {
  const std::string data = "12,#34,0.50,\"1A\",NAME ('x'),.ENUM.,$,0.0";
  const std::string expected = "12,#34,0.50,\"1A\",NAME('x'),.ENUM.,$,0.0";
  const std::size_t head = InFrame("").find("ENDSEC;END-ISO") + std::string("#1=PROBE(").size();
  for (std::size_t place = 0; place <= data.size(); ++place) {
    const std::string blanks((1 << 16) - head - place, ' ');
    EXPECT_EQ(Read(blanks + "#1=PROBE(" + data + ");", ReadAll), Texts{expected}) << place;
  }
}

TEST(Items, AreClosedWhereverTheRecordEnds) {
  for (const Texts& row : Table(R"(
    #1=PROBE(A(B(1;#2=PROBE(2);     | A(B(1)) & 2
    #1=PROBE((1,(2;#2=PROBE(2);     | (1,(2)) & 2
  )",
                                2)) {
    Texts texts = Read(row[0], ReadAll);
    EXPECT_EQ(texts, ItemsOf(row[1])) << row[0];
  }
  std::string read;
  SetProbe({"", -1, [&](STEPtransfer* t) -> STEPheader* { return read = ReadAll(t), nullptr; }});
  const std::string whole = InFrame("#1=PROBE(A((1,");
  ReadBytes(whole.substr(0, whole.find("ENDSEC;END")));
  EXPECT_EQ(read, "A((1))");
}

// Readers of read.h work inside, and where a value ends early they find no more, as at the end of a record.
TEST(Items, GiveTheirMembersToEveryReader) {
  const auto read = [](STEPtransfer* t) {
    EXPECT_STREQ(rSTEPopen(t, kA), "MIX");
    STEPaggr* reals = nullptr;
    xrSTEPaggrPrim(t, nullptr, &reals);
    EXPECT_EQ(reals->GetMemberCount(), 2);
    DeleteSTEPlist(&reals->head);
    delete reals;
    std::string text = rSTEPtext(t, nullptr);
    for (int i = 0; i < 2; ++i) text += " " + std::to_string(rSTEPint(t, nullptr));
    rSTEPclose(t);
    return text + " " + std::to_string(rSTEPint(t, kA));
  };
  EXPECT_EQ(Read("#1=PROBE(MIX((1.,2.),'x',5),7);", read), Texts{"x 5 0 7"});
  EXPECT_EQ(Read("#1=PROBE(MIX((1.,2.),'x',5,6,(6,(7)),$),7);", read), Texts{"x 5 6 7"});
}

// Unasked, a list with an item of another kind leaves a part of it to the next readers. So it does when a reader of
// numbers has refused it in the meantime.
TEST(Items, ThatAreListsAreReadWholeOnceTheirKindIsAsked) {
  const auto read = [](bool asks, bool reads) {
    return [=](STEPtransfer* t) {
      if (asks) rSTEPkind(t, kA);
      if (reads) rSTEPint(t, kA);
      STEPaggr reals;
      STEPaggr* list = &reals;
      xrSTEPaggrPrim(t, kA, &list);
      DeleteSTEPlist(&reals.head);
      return std::string(rSTEPtoken(t, kA));
    };
  };
  for (const Texts& row : Table(R"(
    (1,(2,3),4),7      | 7 | 7
    (1,(2),(3)),7      | 7 |
    (((1)),2),7        | 7 | 2
    (A(1),2),7         | 7 | 2
    (1,'x';#2=PROBE(7) |   |
  )",
                                3)) {
    EXPECT_EQ(Read("#1=PROBE(" + row[0] + ");", read(true, false))[0], row[1]) << row[0];
    for (const bool asks : {false, true}) {
      EXPECT_EQ(Read("#1=PROBE(" + row[0] + ");", read(asks, asks))[0], row[2]) << row[0];
    }
  }
}

TEST(Items, AsNullsAreTakenAndOthersLeft) {
  const auto read = [](STEPtransfer* t) {
    std::string text;
    while (rSTEPkind(t, kA) != STEP_END) {
      const STEPitem null = rSTEPnull(t, kA);
      text += null == STEP_OMITTED ? "$" : null == STEP_DERIVED ? "*" : std::string(rSTEPtoken(t, kA));
    }
    return text + (rSTEPnull(t, kA) == STEP_END ? ";" : "");
  };
  const auto readUnasked = [](STEPtransfer* t) {
    const STEPitem first = rSTEPnull(t, kA);
    const STEPitem second = rSTEPnull(t, kA);
    return std::to_string(first) + std::to_string(second) + std::to_string(rSTEPint(t, kA));
  };
  EXPECT_EQ(Read("#1=PROBE($,*,5,.X.,NAME,$);", read), Texts{"$*5.X.NAME$;"});
  for (const Texts& row : Table(R"(
    $,*,5     | 125
    $ * 5     | 125
    5         | 005
    $,5       | 105
    \n$\n,*,5 | 125
  )",
                                2)) {
    EXPECT_EQ(Read("#1=PROBE(" + row[0] + ");", readUnasked), Texts{row[1]}) << row[0];
  }
}

TEST(Items, AreSkippedWhole) {
  for (const Texts& row : Table(R"(
    A(B('(',(1)),2),7   | 7
    ((1,2),(3)),7       | 7
    'x',7               | 7
    $,7                 | 7
    NAME,7              | 7
    A(1;                | 0
  )",
                                2)) {
    const auto read = [](STEPtransfer* t) {
      rSTEPskip(t, kA);
      return std::to_string(rSTEPint(t, kA));
    };
    EXPECT_EQ(Read("#1=PROBE(" + row[0] + ");", read)[0], row[1]) << row[0];
  }
}

// A reader that leaves values open does not disturb the records after it, in either form.
TEST(Items, LeftOpenAreClosedByTheLibrary) {
  const auto read = [](STEPtransfer* t) {
    rSTEPopen(t, kA);
    rSTEPopen(t, kA);
    return std::string(rSTEPtoken(t, kA));
  };
  EXPECT_EQ(Read("#1=PROBE(A(B(1,2),3));#2=PROBE(A(B(5)));", read), (Texts{"1", "5"}));
}

TEST(Items, NestedTooDeepAreReportedOnceAndPassedOver) {
  const std::string open(STEPopenLimit, '(');
  const std::string close(STEPopenLimit, ')');
  EXPECT_EQ(Read("#1=PROBE(" + open + close + ",7);", ReadAll), Texts{open + close + ",7"});
  const std::string deep(100000, '(');
  EXPECT_EQ(Read("#1=PROBE(" + open + deep + "1" + std::string(deep.size(), ')') + close + ",7);", ReadAll),
            (Texts{open + "?deep" + close + ",7", "(1) [PROBE]Too deep nesting"}));
}

// Calls that do not fit the value read nothing.
TEST(Items, AreNotReadByACallForAnotherKind) {
  const auto read = [](STEPtransfer* t) {
    rSTEPclose(t);
    EXPECT_EQ(rSTEPopen(t, kA), nullptr);
    const std::string five = rSTEPtoken(t, kA);
    EXPECT_STREQ(rSTEPtoken(t, kA), "");
    EXPECT_STREQ(rSTEPopen(t, kA), "");
    EXPECT_STREQ(rSTEPtoken(t, kA), "");
    EXPECT_STREQ(rSTEPopen(t, kA), "B");
    EXPECT_STREQ(rSTEPtoken(t, kA), "");
    EXPECT_TRUE(rSTEPrefuse(t, kA, "refused"));
    return five;
  };
  EXPECT_EQ(Read("#1=PROBE(5,(B()));", read), (Texts{"5", "(1) [PROBE]refused"}));
}

TEST(Items, ThatAWriterLeavesOpenAreEnded) {
  ProjModel model;
  new Entity(kProbe, &model);
  SetProbe({"", -1, nullptr, [](STEPtransfer* t) {
              wSTEPclose(t);
              wSTEPopen(t, kA, "B");
              wSTEPopen(t, kA, nullptr);
              wSTEPtoken(t, kA, nullptr);
            }});
  std::string path = TempPath("items.stp");
  EXPECT_EQ(model.Write(path.data(), nullptr), 1);
  EXPECT_NE(BytesOf(path).find("PROBE(B(($)));\n"), std::string::npos) << BytesOf(path);
}

// ---- written again --------------------------------------------------------------------------------------------------

TEST(Items, AreWrittenWithTheCommasOfTheRecord) {
  for (const Texts& row : Table(kItems, 1)) {
    ProjModel model;
    new Entity(kProbe, &model);
    SetProbe({"", -1, nullptr, [&](STEPtransfer* t) {
                std::string text = row[0];
                wSTEPint(t, kA, 1);
                WriteItem(t, kA, text);
                wSTEPint(t, kA, 2);
              }});
    std::string path = TempPath("items.stp");
    EXPECT_EQ(model.Write(path.data(), nullptr), 1);
    EXPECT_NE(BytesOf(path).find("PROBE(1," + row[0] + ",2);\n"), std::string::npos) << BytesOf(path);
  }
}

}  // namespace
