// A library without the SAX service: built so, or with the service taken away.
#include <gtest/gtest.h>

#include "platform/sax.h"
#include "xml/documents.h"

namespace {

using namespace steprt_test;

constexpr char kShown[] = "Msxml3 is not installed on this computer\n";

class XmlWithoutService : public testing::Test {
 protected:
  XmlWithoutService() : before_(steprt::saxService) { steprt::saxService = nullptr; }
  ~XmlWithoutService() override { steprt::saxService = before_; }

 private:
  const steprt::SaxService* const before_;
};

TEST_F(XmlWithoutService, AReadShowsAMessageAndItsResultIsZero) {
  ProjModel model;
  testing::internal::CaptureStderr();
  EXPECT_EQ(model.ReadXml("<PROJ><PERSON rid='#1'/></PROJ>"), 0);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), kShown);
  EXPECT_TRUE(model.IsEmpty());
  std::string path = TempPath("missing.stp");
  testing::internal::CaptureStderr();
  EXPECT_EQ(model.Read(false, path.data()), 0) << "it takes the place of the clear-text result";
  EXPECT_EQ(testing::internal::GetCapturedStderr(), kShown);
  EXPECT_EQ(TakeReports(path), Texts{"(1) [Read]File not found"});
  EXPECT_FALSE(model.Locked());
}

TEST_F(XmlWithoutService, DocumentsAreWritten) {
  ProjModel model;
  new Entity(kPerson, &model);
  EXPECT_EQ(FirstEntity(WrittenDocument(model)), "<PERSON rid=\"#1\"><Age>0</Age></PERSON>");
}

}  // namespace
