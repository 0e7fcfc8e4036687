// The map from numbers to places, the index of instance numbers on it, and the pool, each held against the standard
// library's map, and each when memory runs out.
#include "support/number_map.h"

#include <gtest/gtest.h>

#include <map>
#include <random>

#include "read/number_index.h"
#include "support/failing_new.h"
#include "support/pool.h"

namespace {

using steprt_test::FailingNew;

// Ways of numbering, as files have them or as one would make them to do harm.
struct Numbering {
  const char* name;
  std::uint32_t (*number)(std::uint32_t i);
};
const Numbering kNumberings[] = {
    {"ascending", [](std::uint32_t i) { return i + 1; }},
    {"descending", [](std::uint32_t i) { return 1000000 - i; }},
    {"in steps of 4096", [](std::uint32_t i) { return i * 4096; }},
    {"in steps of 65536, round the end", [](std::uint32_t i) { return i * 65536 + (i >> 16); }},
    {"one in each page", [](std::uint32_t i) { return i * 256 + i % 7; }},
    {"negative", [](std::uint32_t i) { return 0u - i; }},
    {"scattered", [](std::uint32_t i) { return i * 2654435761u; }},
    {"sparse clusters", [](std::uint32_t i) { return i / 40 * 100003 + i % 40; }},
};

template <typename Table, typename Number>
bool Add(Table& table, Number number, std::uint32_t place) {
  std::uint32_t* room = table.FindOrAdd(number);
  if (room) *room = place;
  return room != nullptr;
}

template <typename Table, typename Number>
void ExpectAsMap(const Numbering& numbering) {
  constexpr std::uint32_t kCount = 30000;
  Table table;
  std::map<std::uint32_t, std::uint32_t> model;
  for (std::uint32_t i = 0; i < kCount; ++i) {
    const std::uint32_t number = numbering.number(i);
    ASSERT_EQ(table.Find(static_cast<Number>(number)), 0u) << numbering.name << " " << number;
    ASSERT_TRUE(Add(table, static_cast<Number>(number), i + 1));
    ASSERT_EQ(*table.FindOrAdd(static_cast<Number>(number)), i + 1);
    model[number] = i + 1;
  }
  ASSERT_EQ(model.size(), kCount) << numbering.name;
  std::mt19937 random(1);
  for (std::uint32_t i = 0; i < kCount; ++i) {
    const auto stranger = static_cast<std::uint32_t>(random());
    for (const std::uint32_t number : {numbering.number(i), numbering.number(i) + 1, stranger}) {
      const auto found = model.find(number);
      const std::uint32_t expected = found == model.end() ? 0 : found->second;
      ASSERT_EQ(table.Find(static_cast<Number>(number)), expected) << numbering.name << " " << number;
    }
  }
}

TEST(NumberMap, FindsWhatWasAddedAndNothingElse) {
  for (const Numbering& each : kNumberings) ExpectAsMap<steprt::NumberMap, std::uint32_t>(each);
}

TEST(NumberIndex, FindsWhatWasAddedAndNothingElse) {
  for (const Numbering& each : kNumberings) ExpectAsMap<steprt::NumberIndex, int>(each);
}

TEST(NumberIndex, HoldsSixteenBytesANumberAtMost) {
  constexpr std::uint32_t kCount = 300000;
  for (const Numbering& each : kNumberings) {
    const std::size_t before = steprt_test::LiveBytes();
    steprt::NumberIndex index;
    for (std::uint32_t i = 0; i < kCount; ++i) ASSERT_TRUE(Add(index, static_cast<int>(each.number(i)), i + 1));
    EXPECT_LE(steprt_test::LiveBytes() - before, std::size_t{kCount} * 16) << each.name;
  }
}

// Each allocation in turn fails: the number of that moment is not there, all others are.
TEST(NumberIndex, ANumberThatFindsNoMemoryIsNotThereAndDisturbsNoOther) {
  constexpr std::uint32_t kCount = 4000;
  for (const Numbering& each : kNumberings) {
    bool hasFailed = true;
    for (long nth = 1; hasFailed; ++nth) {
      steprt::NumberIndex index;
      std::map<std::uint32_t, std::uint32_t> model;
      const FailingNew failing(nth);
      for (std::uint32_t i = 0; i < kCount; ++i) {
        const std::uint32_t number = each.number(i);
        if (Add(index, static_cast<int>(number), i + 1)) model[number] = i + 1;
      }
      hasFailed = failing.HasFailed();
      ASSERT_GE(model.size(), kCount - 1) << each.name << ", allocation " << nth;
      for (std::uint32_t i = 0; i < kCount; ++i) {
        const auto found = model.find(each.number(i));
        ASSERT_EQ(index.Find(static_cast<int>(each.number(i))), found == model.end() ? 0 : found->second)
            << each.name << ", allocation " << nth << ", number " << each.number(i);
      }
    }
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
