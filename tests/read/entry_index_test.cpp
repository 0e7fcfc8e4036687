// The rows of the instance table, found by number: however a file numbers its records, in whatever order, and when
// memory runs out.
#include "read/transfer/entry_index.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <vector>

#include "support/failing_new.h"
#include "support/numberings.h"

namespace {

using namespace steprt_test;
using steprt::EntryIndex;

std::vector<int> Numbers(const Numbering& numbering, std::uint32_t count, bool isShuffled = false) {
  std::vector<int> numbers;
  for (std::uint32_t i = 0; i < count; ++i) numbers.push_back(static_cast<int>(numbering.number(i)));
  if (isShuffled) std::shuffle(numbers.begin(), numbers.end(), std::mt19937(7));
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

void ExpectFound(EntryIndex& index, const std::vector<int>& numbers) {
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
    ASSERT_TRUE(row.number == number && row.type == -1 && !row.object) << number;
  }
}

TEST(EntryIndex, FindsEachEntryWhereItWasMadeAndNothingElse) {
  constexpr std::uint32_t kCount = 30000;
  for (const Numbering& each : kNumberings) {
    for (const int way : {0, 1, 2, 3}) {
      SCOPED_TRACE(each.name + std::string(way & 1 ? ", shuffled" : "") + (way & 2 ? ", of known size" : ""));
      EntryIndex index;
      if (way & 2) index.Expect(kCount);
      ExpectFound(index, Numbers(each, kCount, way & 1));
    }
  }
}

// Each allocation in turn fails: the number of that moment may not be there, all others are.
TEST(EntryIndex, ANumberThatFindsNoMemoryIsNotThereAndDisturbsNoOther) {
  for (const Numbering& each : kNumberings) {
    bool hasFailed = true;
    for (long nth = 1; hasFailed; ++nth) {
      EntryIndex index;
      const std::vector<int> numbers = Numbers(each, 4000);
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
