// What becomes of the SAX service's words.
#include "xml/error_handler.h"

#include <gtest/gtest.h>

#include "read/transfer.h"
#include "support/proj_schema.h"

namespace {

using namespace steprt_test;

TEST(XmlErrorHandler, WordsGoOutBareAndCutAndTheCountBecomesMinusOne) {
  const std::pair<std::u16string, std::string> rows[] = {{u"bad tag", "bad tag"},
                                                         {u"", ""},
                                                         {u"\u0141\u00e9", "A\xe9"},
                                                         {u"ab\u0100cd", "ab"},
                                                         {std::u16string(127, u'x'), std::string(127, 'x')},
                                                         {std::u16string(128, u'x'), std::string(127, 'x')},
                                                         {std::u16string(5000, u'x'), std::string(127, 'x')}};
  const steprt::TransferOwner t = steprt::NewTransfer("doc", CollectReport, ProjSchema(), true);
  steprt::XmlErrorHandler handler;
  handler.transfer = t.get();
  for (const auto& [message, delivered] : rows) {
    for (const bool fatal : {false, true}) {
      t->errors = 7;
      EXPECT_EQ(handler.IgnorableWarning(message.c_str()), 0);
      EXPECT_EQ(t->errors, 7) << "a warning is ignored";
      EXPECT_EQ(fatal ? handler.FatalError(message.c_str()) : handler.Error(message.c_str()), 0);
      EXPECT_EQ(t->errors, -1);
      EXPECT_EQ(TakeReports("doc"), Texts{delivered});
    }
  }
}

}  // namespace
