// What becomes of the SAX service's words.
#include "xml/error_handler.h"

#include <gtest/gtest.h>

#include "read/report.h"
#include "read/transfer.h"
#include "support/proj_schema.h"

namespace {

using namespace steprt_test;

TEST(XmlErrorHandler, WordsGoOutBareAndCutAndTheCountBecomesMinusOne) {
  struct Row {
    std::u16string message;
    std::string delivered;
  };
  const Row rows[] = {{u"bad tag", "bad tag"},
                      {u"", ""},
                      {u"\u0141\u00e9", "A\xe9"},
                      {u"ab\u0100cd", "ab"},
                      {std::u16string(127, u'x'), std::string(127, 'x')},
                      {std::u16string(128, u'x'), std::string(127, 'x')},
                      {std::u16string(5000, u'x'), std::string(127, 'x')}};
  const steprt::TransferOwner t = steprt::NewTransfer("doc", CollectReport, ProjSchema(), true);
  steprt::XmlErrorHandler handler;
  handler.transfer = t.get();
  for (const Row& row : rows) {
    for (const bool fatal : {false, true}) {
      t->errors = 7;
      EXPECT_EQ(fatal ? handler.FatalError(row.message.c_str()) : handler.Error(row.message.c_str()), 0);
      EXPECT_EQ(t->errors, -1);
      EXPECT_EQ(TakeReports("doc"), Texts{row.delivered});
    }
  }
}

TEST(XmlErrorHandler, LaterReportsCountUpFromMinusOne) {
  const steprt::TransferOwner t = steprt::NewTransfer("doc", CollectReport, ProjSchema(), true);
  steprt::XmlErrorHandler handler;
  handler.transfer = t.get();
  handler.Error(u"bad");
  for (const int count : {0, 1, 2}) {
    steprt::ReportError(t.get(), "late");
    EXPECT_EQ(t->errors, count);
  }
  TakeReports("doc");
}

TEST(XmlErrorHandler, AWarningIsIgnored) {
  const steprt::TransferOwner t = steprt::NewTransfer("doc", CollectReport, ProjSchema(), true);
  steprt::XmlErrorHandler handler;
  handler.transfer = t.get();
  t->errors = 3;
  EXPECT_EQ(handler.IgnorableWarning(u"odd"), 0);
  EXPECT_EQ(t->errors, 3);
  EXPECT_EQ(TakeReports("doc"), Texts{});
}

}  // namespace
