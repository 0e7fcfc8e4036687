// Read and Write of a model: names, flags, the current model and the error budget, before, during and after.
#include <gtest/gtest.h>

#include <climits>

#include "platform/sax.h"
#include "support/proj_schema.h"
#include "support/temp_files.h"

namespace {

using namespace steprt_test;

TEST(TransferFlags, ReadTakesTheNameOnAndNullMeansTheModelsOwn) {
  ProjModel model;
  std::string path = MakeFile("own.stp", InFrame("#1=PERSON(1);"));
  EXPECT_EQ(model.Read(false, path.data()), 0);
  EXPECT_EQ(model.Name(), path);
  EXPECT_EQ(model.Read(false, nullptr), 0);
  EXPECT_EQ(Population(model), (Texts{"PERSON(1)", "PERSON(1)"})) << "a second read appends";
  const std::string bare = path.substr(0, path.size() - 4);
  model.Name(bare.c_str());
  EXPECT_EQ(model.Read(false, nullptr), 0);
  EXPECT_EQ(model.Name(), bare) << "an ending that is added lands in the transfer only";
}

TEST(TransferFlags, WriteLeavesTheNameAlone) {
  ProjModel model;
  new Entity(kPerson);
  std::string own = TempPath("written-own.stp");
  std::string other = TempPath("written-other.stp");
  model.Name(own.c_str());
  EXPECT_EQ(model.Write(other.data(), nullptr), 1);
  EXPECT_EQ(model.Name(), own);
  EXPECT_EQ(BytesOf(own), "(none)");
  EXPECT_EQ(model.Write(nullptr, nullptr), 1);
  EXPECT_NE(BytesOf(own).find("'QVN',''));\n"), std::string::npos) << "a null remark is an empty one";
}

int CountShown(STEPmodel& model) {
  int shown = 0;
  for (int i = 0; i < 20; ++i) shown += model.ErrShow();
  return shown;
}

const struct Form {
  const char* probe;
  int (*read)(STEPmodel& model);
  int (STEPmodel::*write)(char* name, const char* remark);
} kForms[] = {
    {"STEP;DATA;#1=PROBE();ENDSEC;ENDSTEP;", [](STEPmodel& model) { return model.Read(false, nullptr); },
     &STEPmodel::Write},
    {"<PROJ><PROBE rid='#1'/></PROJ>", [](STEPmodel& model) { return model.ReadXml(nullptr); }, &STEPmodel::WriteXml}};

TEST(TransferFlags, DuringATransferTheModelIsLockedAndForAReadCurrentAndTheBudgetIsFilledByEach) {
  for (const Form& form : kForms) {
    if (*form.probe == '<' && !steprt::saxService) continue;
    ProjModel model(3);
    ProjModel current;
    bool isRead = false;
    bool isWritten = false;
    SetProbe({"", -1,
              [&](STEPtransfer*) {
                isRead = model.Locked() && CurrentModel() == &model && model.ErrShow() == 1;
                auto* object = new Entity(kProbe);
                return object->Changed(), object;
              },
              [&](STEPtransfer*) { isWritten = model.Locked() && CurrentModel() == &current; }});
    const auto expectOver = [&](int budget) {
      EXPECT_EQ(CurrentModel(), &current) << form.probe;
      EXPECT_FALSE(model.Locked()) << form.probe;
      EXPECT_FALSE(model.Changed()) << form.probe;
      EXPECT_EQ(CountShown(model), budget) << form.probe;
    };
    std::string path = MakeFile("flags.stp", form.probe);
    model.Name(path.c_str());
    model.SetLocked(true);
    EXPECT_EQ(form.read(model), 0);
    EXPECT_TRUE(isRead);
    expectOver(2);
    EXPECT_EQ(Population(model), Texts{"PROBE()"});
    EXPECT_TRUE(current.IsEmpty());
    model.SetChanged(true);
    EXPECT_EQ((model.*form.write)(path.data(), nullptr), 1);
    EXPECT_TRUE(isWritten);
    expectOver(3);
    model.SetChanged(true);
    std::string folder = TempPath(".");
    EXPECT_EQ((model.*form.write)(folder.data(), ""), -1);
    EXPECT_EQ(TakeReports(folder), Texts{"(1) [Write]Can't create file"});
    expectOver(3);
  }
}

TEST(TransferFlags, ANewLimitCountsFromTheNextTransferOn) {
  ProjModel model;
  int during = -1;
  SetProbe({"", -1, [&](STEPtransfer*) {
              model.ErrShow(7);
              return during = CountShown(model), new Entity(kPerson);
            }});
  model.ErrShow(3);
  std::string path = MakeFile("probe.stp", InFrame("#1=PROBE();"));
  model.Read(false, path.data());
  EXPECT_EQ(during, 3) << "not for the one that runs";
  EXPECT_EQ(CountShown(model), 0);
  path = MakeFile("budget.stp", InFrame("#1=PERSON(1);"));
  model.Read(false, path.data());
  EXPECT_EQ(CountShown(model), 7);
  EXPECT_EQ(model.errorsLeft, -13) << "every call takes one";
  for (const int limit : {-1, INT_MIN + 5, INT_MIN}) {
    model.ErrShow(limit);
    model.Read(false, path.data());
    EXPECT_EQ(CountShown(model), 0) << limit;
  }
}

}  // namespace
