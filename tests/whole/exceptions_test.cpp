// Exceptions of the client's functions pass through, and nothing is left: no memory, no open file, no lock, no
// flag, no wrong current model. And reads inside reads.
#include <gtest/gtest.h>

#include <filesystem>
#include <stdexcept>

#include "platform/sax.h"
#include "support/failing_new.h"
#include "xml/documents.h"

namespace {

using namespace steprt_test;

struct ClientError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

long OpenFiles() {
  namespace fs = std::filesystem;
  return std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator());
}

class Exceptions : public testing::Test {
 protected:
  Exceptions() { ProjSchema()->errorProc = Report; }
  ~Exceptions() override {
    ProjSchema()->errorProc = CollectReport;
    SetProbe({});
    throwing = "";
  }

  // What the transfer throws comes out, and afterwards all is as before but for the instances that were made.
  template <typename Transfer>
  void ExpectThrow(const std::string& what, Transfer transfer) {
    ProjModel current;
    model_.Delete();
    const long blocks = LiveBlocks();
    const long files = OpenFiles();
    EXPECT_THROW(transfer(), ClientError) << what;
    EXPECT_EQ(CurrentModel(), &current) << what;
    EXPECT_FALSE(model_.Locked()) << what;
    EXPECT_FALSE(model_.Changed()) << what;
    EXPECT_EQ(OpenFiles(), files) << what;
    model_.Delete();
    EXPECT_EQ(LiveBlocks(), blocks) << what;
  }

  // As XML from a file and from memory if that is what the bytes are.
  void ExpectThrowOfRead(const std::string& bytes) {
    const bool isDocument = bytes[0] == '<';
    if (isDocument && !steprt::saxService) return;
    model_.Name(MakeFile("throws.stp", bytes).c_str());
    ExpectThrow(bytes, [&] { isDocument ? model_.ReadXml(nullptr) : model_.Read(false, nullptr); });
    if (isDocument) ExpectThrow(bytes, [&] { model_.ReadXml(bytes.c_str()); });
  }

  static void Report(const char* text) {
    if (std::string(text).find(throwing) != std::string::npos) throw ClientError("report");
  }

  inline static std::string throwing = "";  // a piece of the report that throws
  ProjModel model_;
};

TEST_F(Exceptions, OfAReadFunction) {
  SetProbe({"", -1, [](STEPtransfer* t) -> STEPheader* {
              auto* object = new Entity(kSample);
              xrSTEPtextAggr(t, "A", &object->values[11].list);
              throw ClientError("read");
            }});
  for (const std::string& bytes : {InFrame("#1=DOOR(#9);#2=PERSON(1);#3=PROBE(('a','b'));#4=PERSON(2);"),
                                   InRoot("<DOOR rid='#1'/><PROBE rid='#3'><A>'a';'b'</A></PROBE><DOOR rid='#2'/>")}) {
    ExpectThrowOfRead(bytes);
  }
}

TEST_F(Exceptions, OfAWriteFunctionLeaveTheFileOpenToTheNextWriter) {
  std::string path = TempPath("throws-written.stp");
  SetProbe({"", -1, {}, [](STEPtransfer* t) {
              wSTEPint(t, "A", 5);
              throw ClientError("write");
            }});
  const std::pair<int (STEPmodel::*)(char*, const char*), const char*> forms[] = {
      {&STEPmodel::Write, "\n#1 = PERSON(0);\n#2 = PROBE(5"}, {&STEPmodel::WriteXml, "\n\t<PROBE rid=\"#2\"><A>5</A>"}};
  for (const auto& [write, start] : forms) {
    ExpectThrow("write", [&, write = write] {
      new Entity(kPerson, &model_);
      new Entity(kProbe, &model_);
      (model_.*write)(path.data(), "");
    });
    EXPECT_NE(BytesOf(path).find(start), std::string::npos);
    EXPECT_EQ(STEPwrite(path.data(), "", nullptr, ProjSchema()), 0);
  }
}

// Wherever a report can come from while something is held.
TEST_F(Exceptions, OfAnErrorProcedure) {
  const struct {
    const char* report;
    const char* bytes;
  } rows[] = {
      {"Not a STEP file", "HEADER;"},
      {"Missing text in list", "STEP;HEADER;FILE_SCHEMA(('PROJ','B',5));"},
      {"Missing text in list", "STEP;HEADER;FILE_SCHEMA(('PROJ'));FILE_SCHEMA(('PROJ','B',5));"},
      {"Unterminated", "STEP;HEADER;FILE_SCHEMA(('PROJ','B\n"},
      {"Entity #1 already used", "STEP;DATA;#1=PERSON(1);#1=PERSON(2);"},
      {"Missing integer", "STEP;DATA;#1=PERSON('a');"},
      {"Unknown entity", "STEP;DATA;#1=PERSON(1);#2=OTHER();"},
      {"Missing reference", "STEP;DATA;#1=WALL('',0.,#7,(#8,#9,5),(),.F.);"},
      {"unknown object #1", "STEP;DATA;#1=WALL('',0.,#7,(#8,#1),(),.F.);"},
      {"wrong object type", "STEP;DATA;#1=PERSON(1);#2=WALL('',0.,#7,(#8,#1),(),.F.);"},
      {"Missing text", "STEP;DATA;#1=SAMPLE('a',1,1.,.T.,.U.,.RED.,'s',$,(),(1.),(.RED.),('a','b',3));"},
      {"Unknown reference #7", "STEP;DATA;#1=DOOR(#7);#2=DOOR(#8);ENDSEC;ENDSTEP;"},
      {"Missing entity 'Rid'", "<PROJ><DOOR rid='#1'/><PERSON/></PROJ>"},
      {"unclosed token", "<PROJ"},
      {"Unknown reference #2", "<PROJ><DOOR rid='#1'><Host>#2</Host></DOOR></PROJ>"},
      {"Entity #1 already used", "<PROJ><DOOR rid='#1'/><DOOR rid='#1'/></PROJ>"},
  };
  for (const auto& row : rows) {
    throwing = row.report;
    ExpectThrowOfRead(row.bytes);
  }
  for (const char* path : {"/tmp/.", "/nowhere/at.all"}) {
    throwing = "Can't create file";
    ExpectThrow(path, [&] { model_.Write(std::string(path).data(), ""); });
  }
  throwing = "Unknown STEP object";
  ExpectThrow("write", [&] {
    new Entity(999, &model_);
    model_.Write(TempPath("unknown.stp").data(), "");
  });
}

TEST_F(Exceptions, OfAReadInsideAReadPassThroughBoth) {
  ProjModel inner;
  std::string innerPath = MakeFile("inner.stp", InFrame("#1=OTHER();"));
  std::string path = MakeFile("outer.stp", InFrame("#1=PROBE();"));
  SetProbe({"", -1, [&](STEPtransfer*) -> STEPheader* {
              throwing = "Unknown entity";
              inner.Read(false, innerPath.data());
              return nullptr;
            }});
  ExpectThrow("nested", [&] { model_.Read(false, path.data()); });
  EXPECT_FALSE(inner.Locked());
}

TEST(NestedReads, RestoreInTheRightOrder) {
  ProjModel outer;
  ProjModel inner;
  ProjModel current;
  std::string innerPath = MakeFile("nested-inner.stp", InFrame("#1=PERSON(10);#2=OTHER();#1=DOOR(#1);"));
  std::string path = MakeFile("nested-outer.stp", InFrame("#1=PERSON(1);#2=PROBE();#3=DOOR(#2);#4=DOOR(#1);"));
  int errors = -1;
  SetProbe({"", -1, [&](STEPtransfer*) -> STEPheader* {
              errors = inner.Read(true, innerPath.data());
              EXPECT_EQ(CurrentModel(), &outer);
              EXPECT_TRUE(outer.Locked());
              return new Entity(kWall);
            }});
  EXPECT_EQ(outer.Read(false, path.data()), 1);
  SetProbe({});
  EXPECT_EQ(CurrentModel(), &current);
  EXPECT_EQ(errors, 3);
  EXPECT_EQ(Population(inner), (Texts{"PERSON(10)", "DOOR(@1)"}));
  EXPECT_EQ(Population(outer), (Texts{"PERSON(1)", "WALL('',0,null,none,none,F)", "DOOR(@2)", "DOOR(@1)"}));
  TakeReports("");
}

}  // namespace
