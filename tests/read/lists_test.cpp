// The readers of lists: where they put the items. What they take is in attributes.rows.
#include "read/attribute_rows.h"

namespace {

using namespace steprt_test;

TEST(Lists, AreReadAndReportedWithoutAPlaceForThem) {
  const auto read = [](STEPtransfer* t) { return xrSTEPaggr(t, "A", nullptr, -1, true), nullptr; };
  EXPECT_EQ(ReadWith(read, "#1=PROBE(($,#1,5));"), (Outcome{1, {"(1) [PROBE]Missing reference"}, {}}));
}

TEST(Lists, TheFirstItemTakesThePlaceOfNodesThatWereThere) {
  for (const auto& [data, left] : {std::pair{"#1=PROBE(());", 2}, {"#1=PROBE($);", 2}, {"#1=PROBE((5));", 1}}) {
    STEPaggr aggr;
    aggr.Append(1.0);
    aggr.Append(2.0);
    STEPlist* old = aggr.head;
    const auto read = [&](STEPtransfer* t) {
      STEPaggr* list = &aggr;
      return xrSTEPaggrPrim(t, "A", &list), nullptr;
    };
    ReadWith(read, data);
    EXPECT_EQ(aggr.GetMemberCount(), left) << data;
    if (aggr.head != old) DeleteSTEPlist(&old);
    DeleteSTEPlist(&aggr.head);
  }
}

}  // namespace
