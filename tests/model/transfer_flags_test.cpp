// Read and Write of a model: names, flags, the current model and the error budget, before, during and after.
#include <gtest/gtest.h>

#include <climits>

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

TEST(TransferFlags, DuringATransferTheModelIsLockedAndForAReadCurrent) {
  ProjModel model;
  ProjModel current;
  bool isWritten = false;
  SetProbe({"", -1,
            [&](STEPtransfer*) {
              EXPECT_TRUE(model.Locked());
              EXPECT_EQ(CurrentModel(), &model);
              auto* object = new Entity(kProbe);
              return object->Changed(), object;
            },
            [&](STEPtransfer*) { isWritten = model.Locked() && CurrentModel() == &current; }});
  model.SetLocked(true);
  std::string path = MakeFile("flags.stp", InFrame("#1=PROBE();"));
  EXPECT_EQ(model.Read(true, path.data()), 0);
  EXPECT_FALSE(model.IsEmpty());
  EXPECT_FALSE(model.Locked());
  EXPECT_FALSE(model.Changed());
  EXPECT_EQ(CurrentModel(), &current);
  model.SetChanged(true);
  EXPECT_EQ(model.Write(path.data(), ""), 1);
  EXPECT_TRUE(isWritten);
  EXPECT_FALSE(model.Locked());
  EXPECT_FALSE(model.Changed());
  model.SetChanged(true);
  std::string folder = TempPath(".");
  EXPECT_EQ(model.Write(folder.data(), ""), -1);
  EXPECT_EQ(TakeReports(folder), Texts{"(1) [Write]Can't create file"});
  EXPECT_FALSE(model.Changed()) << "after a failed write as well";
}

TEST(TransferFlags, TheErrorBudgetIsFilledByEachTransfer) {
  ProjModel model;
  const auto budget = [&] {
    int shown = 0;
    for (int i = 0; i < 20; ++i) shown += model.ErrShow();
    return shown;
  };
  std::string path = MakeFile("budget.stp", InFrame("#1=PERSON(1);"));
  int during = -1;
  SetProbe({"", -1, [&](STEPtransfer*) {
              model.ErrShow(7);
              return during = budget(), new Entity(kPerson);
            }});
  model.ErrShow(3);
  std::string probe = MakeFile("probe.stp", InFrame("#1=PROBE();"));
  model.Read(false, probe.data());
  EXPECT_EQ(during, 3) << "a new limit does not reach the transfer that runs";
  EXPECT_EQ(budget(), 0);
  model.Read(false, path.data());
  EXPECT_EQ(budget(), 7);
  EXPECT_EQ(model.errorsLeft, -13) << "every call takes one";
  model.Write(path.data(), nullptr);
  EXPECT_EQ(budget(), 7);
  for (const int limit : {-1, INT_MIN + 5, INT_MIN}) {
    model.ErrShow(limit);
    model.Read(false, path.data());
    EXPECT_EQ(budget(), 0) << limit;
  }
}

}  // namespace
