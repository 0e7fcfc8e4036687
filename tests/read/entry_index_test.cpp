// The rows of the instance table, found by number: however a file numbers its records, in whatever order, when memory
// runs out, and within the memory that a record may take.
#include "read/entry_index.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <vector>

#include "support/failing_new.h"
#include "support/numberings.h"

namespace {

using steprt::EntryIndex;
using steprt_test::FailingNew;
using steprt_test::kNumberings;
using steprt_test::Numbering;

enum class Order { kAsNumbered, kShuffled };
enum class Size { kUnknown, kKnown };

std::vector<int> Numbers(const Numbering& numbering, std::uint32_t count, Order order) {
  std::vector<int> numbers;
  for (std::uint32_t i = 0; i < count; ++i) numbers.push_back(static_cast<int>(numbering.number(i)));
  if (order == Order::kShuffled) std::shuffle(numbers.begin(), numbers.end(), std::mt19937(7));
  return numbers;
}

// Adds all numbers; those that found no memory are left out of the map.
std::map<int, STEPentry*> AddAll(EntryIndex& index, const std::vector<int>& numbers) {
  std::map<int, STEPentry*> rows;
  for (const int number : numbers) {
    STEPentry* row = index.Add(number);
    if (row) rows[number] = row;
  }
  return rows;
}

class EntryIndexOrders : public testing::TestWithParam<std::tuple<Order, Size>> {
 protected:
  template <typename Use>
  void ForEachNumbering(std::uint32_t count, Use use) {
    for (const Numbering& each : kNumberings) {
      SCOPED_TRACE(each.name);
      EntryIndex index;
      if (std::get<Size>(GetParam()) == Size::kKnown) index.Expect(count);
      use(index, Numbers(each, count, std::get<Order>(GetParam())));
    }
  }
};

TEST_P(EntryIndexOrders, FindsEachRowWhereItWasMadeAndNothingElse) {
  ForEachNumbering(30000, [](EntryIndex& index, const std::vector<int>& numbers) {
    const std::map<int, STEPentry*> rows = AddAll(index, numbers);
    ASSERT_EQ(rows.size(), numbers.size());
    ASSERT_EQ(index.Count(), numbers.size());
    std::mt19937 random(1);
    for (const int number : numbers) {
      for (const int asked : {number, number ^ 1, number ^ 256, static_cast<int>(random())}) {
        const auto found = rows.find(asked);
        ASSERT_EQ(index.Find(asked), found == rows.end() ? nullptr : found->second) << asked;
      }
      const STEPentry& row = *rows.at(number);
      ASSERT_TRUE(row.number == number && row.type == -1 && !row.next && !row.object) << number;
    }
  });
}

TEST_P(EntryIndexOrders, HoldsFortyEightBytesARecordAtMost) {
  constexpr std::uint32_t kCount = 300000;
  ForEachNumbering(kCount, [](EntryIndex& index, const std::vector<int>& numbers) {
    const std::size_t before = steprt_test::LiveBytes();
    for (const int number : numbers) ASSERT_NE(index.Add(number), nullptr);
    EXPECT_LE(steprt_test::LiveBytes() - before, std::size_t{kCount} * 48);
  });
}

INSTANTIATE_TEST_SUITE_P(All, EntryIndexOrders,
                         testing::Combine(testing::Values(Order::kAsNumbered, Order::kShuffled),
                                          testing::Values(Size::kUnknown, Size::kKnown)));

// Each allocation in turn fails: the number of that moment may not be there, all others are.
TEST(EntryIndex, ANumberThatFindsNoMemoryIsNotThereAndDisturbsNoOther) {
  for (const Numbering& each : kNumberings) {
    bool hasFailed = true;
    for (long nth = 1; hasFailed; ++nth) {
      EntryIndex index;
      const std::vector<int> numbers = Numbers(each, 4000, Order::kAsNumbered);
      const FailingNew failing(nth);
      const std::map<int, STEPentry*> rows = AddAll(index, numbers);
      hasFailed = failing.HasFailed();
      ASSERT_GE(rows.size(), numbers.size() - 1) << each.name << ", allocation " << nth;
      for (const int number : numbers) {
        const auto found = rows.find(number);
        ASSERT_EQ(index.Find(number), found == rows.end() ? nullptr : found->second)
            << each.name << ", allocation " << nth << ", number " << number;
      }
    }
  }
}

}  // namespace
