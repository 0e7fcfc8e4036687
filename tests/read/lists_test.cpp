// The readers of lists: where they put the items. What they take is in attributes.rows.
#include "read/attribute_rows.h"
#include "xml/events.h"

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

STEPaggr* watchedList;
std::vector<int> typesAtReports;  // of the last instance in the list

void LookAtList(const char* /*report*/) {
  const int count = watchedList ? watchedList->GetMemberCount() : 0;
  const STEPlist* node = count > 0 ? watchedList->head : nullptr;
  while (node && node->next) node = node->next;
  typesAtReports.push_back(node && node->value.object ? node->value.object->Type() : -1);
}

// Two instances of different types, neither of which is a door.
TEST(Lists, AnInstanceOfAWrongTypeIsInTheListWhenItIsReported) {
  SetProbe({"", -1, [](STEPtransfer* t) -> STEPheader* {
              xrSTEPaggr(t, "A", &watchedList, kDoor, false);
              DeleteSTEPlist(&watchedList->head);
              delete std::exchange(watchedList, nullptr);
              return nullptr;
            }});
  const std::vector<int> expected = {kPerson, kPoint};

  ProjModel model;
  const STEPerrorProc collect = std::exchange(model.schema->errorProc, LookAtList);
  typesAtReports.clear();
  EXPECT_EQ(ReadBytes(model, InFrame("#1=PERSON(1);#2=POINT(0.,0.,0.);#3=PROBE((#1,#2));")).result, 2);
  model.schema->errorProc = collect;
  EXPECT_EQ(typesAtReports, expected) << "clear text";

  typesAtReports.clear();
  XmlEvents(LookAtList).Feed("<PROJ><PERSON #1></><POINT #2></><PROBE #3><A>#1 #2</></></>");
  EXPECT_EQ(typesAtReports, expected) << "XML";
}

}  // namespace
