// When a read prefetches: it changes no outcome, so this is seen in the state of the prefetcher alone.
#include <gtest/gtest.h>

#include "read/transfer/read_store.h"
#include "support/proj_schema.h"

namespace {

using namespace steprt_test;

// The number of the i-th record; one far from the next is another page of the table.
using NumberOf = int (*)(int i);

struct Answers {
  int due = 0;
  int notDue = 0;
};

// What the prefetcher answers to a PROBE's read function, which asks once a record, over 12,000 records with a
// reference each. A large table comes first, since a small one is in the cache anyway.
Answers AskWhileReading(NumberOf numberOf) {
  Answers answers;
  STEPheader* object = nullptr;  // a forward reference is stored when the read ends
  SetProbe({"", -1, [&](STEPtransfer* t) -> STEPheader* {
              xrSTEPref(t, "A", &object, -1, true);
              ++(t->store->prefetcher.IsDue() ? answers.due : answers.notDue);
              return nullptr;
            }});
  std::string data;
  for (int i = 0; i < 12'000; ++i) {
    data += "#" + std::to_string(numberOf(i)) + "=PROBE(#" + std::to_string(numberOf(i + 1)) + ");";
  }
  ReadData(data);
  return answers;
}

TEST(Prefetch, IsDueOnceInABatchWhereNumbersAreFarFromOneAnotherAndNeverWhereTheyAreNear) {
  const Answers far = AskWhileReading([](int i) { return i % 2 == 0 ? i + 1 : 1'000'000 - i; });
  EXPECT_GT(far.due, 100);
  EXPECT_LT(far.due, 2'000) << "each prefetch is for some references to come";
  EXPECT_EQ(AskWhileReading([](int i) { return i + 1; }).due, 0);
  EXPECT_EQ(AskWhileReading([](int i) { return i % 2 == 0 ? i + 1 : i + 1'501; }).due, 0) << "near";
}

}  // namespace
