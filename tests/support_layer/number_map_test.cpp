// The map from numbers to places, held against the standard library's map, and the pool.
#include "support/number_map.h"

#include <gtest/gtest.h>

#include <map>
#include <random>

#include "support/failing_new.h"
#include "support/numberings.h"
#include "support/pool.h"

namespace {

using steprt_test::FailingNew;
using steprt_test::kNumberings;
using steprt_test::Numbering;

void ExpectAsMap(const Numbering& numbering) {
  constexpr std::uint32_t kCount = 30000;
  steprt::NumberMap table;
  std::map<std::uint32_t, std::uint32_t> model;
  for (std::uint32_t i = 0; i < kCount; ++i) {
    const std::uint32_t number = numbering.number(i);
    ASSERT_EQ(table.Find(number), 0u) << numbering.name << " " << number;
    std::uint32_t* room = table.FindOrAdd(number);
    ASSERT_NE(room, nullptr);
    *room = i + 1;
    ASSERT_EQ(*table.FindOrAdd(number), i + 1);
    model[number] = i + 1;
  }
  ASSERT_EQ(model.size(), kCount) << numbering.name;
  std::mt19937 random(1);
  for (std::uint32_t i = 0; i < kCount; ++i) {
    const auto stranger = static_cast<std::uint32_t>(random());
    for (const std::uint32_t number : {numbering.number(i), numbering.number(i) + 1, stranger}) {
      const auto found = model.find(number);
      ASSERT_EQ(table.Find(number), found == model.end() ? 0 : found->second) << numbering.name << " " << number;
    }
  }
}

TEST(NumberMap, FindsWhatWasAddedAndNothingElse) {
  for (const Numbering& each : kNumberings) ExpectAsMap(each);
}

TEST(Pool, RecordsStayWhereTheyAreAndStartZeroed) {
  const long before = steprt_test::LiveBlocks();
  {
    steprt::Pool<long, 8> pool;
    std::vector<long*> records;
    for (long i = 0; i < 1000; ++i) {
      if (i == 400) {
        const FailingNew failing(1);
        EXPECT_EQ(pool.Make(), nullptr);
      }
      long* record = pool.Make();
      ASSERT_NE(record, nullptr);
      ASSERT_EQ(*record, 0);
      *record = i + 1;
      records.push_back(record);
    }
    EXPECT_EQ(pool.Count(), 1000u);
    for (std::uint32_t i = 0; i < 1000; ++i) ASSERT_TRUE(&pool.At(i) == records[i] && *records[i] == i + 1) << i;
  }
  EXPECT_EQ(steprt_test::LiveBlocks(), before);
}

}  // namespace
