// The map from numbers to places, beyond what the index of rows tries of it, and the pool of records.
#include "support/number_map.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/failing_new.h"
#include "support/pool.h"

namespace {

using steprt_test::FailingNew;

TEST(NumberMap, ANumberThatIsThereKeepsItsPlace) {
  steprt::NumberMap map;
  for (std::uint32_t i = 0; i < 1000; ++i) {
    *map.FindOrAdd(i * 256) = i + 1;
    ASSERT_EQ(*map.FindOrAdd(i * 256), i + 1);
    ASSERT_EQ(map.Find(i * 128), i % 2 ? 0 : i / 2 + 1);
  }
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
