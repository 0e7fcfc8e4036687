// The tools that tables are made of: the hash table, its hashes, and the pool of records.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/ascii.h"
#include "support/failing_new.h"
#include "support/hash.h"
#include "support/hash_table.h"
#include "support/pool.h"

namespace {

using namespace steprt;
using steprt_test::FailingNew;

struct Slot {
  std::uint32_t number;
  std::uint32_t value;
  bool IsFree() const { return value == 0; }
};

TEST(HashTable, ASlotThatIsTakenIsFoundWhereverItMoves) {
  HashTable<Slot, 7> table;
  const HashSeed seed = ProcessSeed();
  const auto hashOf = [=](const Slot& slot) { return HashNumber(slot.number, seed); };
  const auto find = [&](std::uint32_t number) {
    return table.Find(HashNumber(number, seed), [=](const Slot& slot) { return slot.number == number; });
  };
  EXPECT_EQ(find(0), nullptr);
  for (std::uint32_t i = 0; i < 1000; ++i) {
    ASSERT_TRUE(table.Reserve(1, hashOf));
    *find(i * 256) = {i * 256, i + 1};
    table.NoteTaken();
    ASSERT_EQ(find(i * 256)->value, i + 1);
    ASSERT_EQ(find(i * 128)->value, i % 2 ? 0 : i / 2 + 1);
  }
  EXPECT_EQ(table.Count(), 1000u);
  table.Clear(0);
  EXPECT_EQ(find(0), nullptr);
}

// Case folds for ASCII letters only, and every byte counts: otherwise a document could be made to collide.
TEST(Hash, NamesHashAlikeIfTheyDifferInTheCaseOfLettersAlone) {
  const HashSeed seed = ProcessSeed();
  for (std::string name : {"a", "Name", "RefLatitude", "IFCRELCONTAINEDINSPATIALSTRUCTURE"}) {
    const std::uint64_t hash = HashNoCase(name, seed);
    for (std::size_t i = 0; i < name.size(); ++i) {
      for (int byte = 0; byte < 256; ++byte) {
        std::string other = name;
        other[i] = static_cast<char>(byte);
        EXPECT_EQ(HashNoCase(other, seed) == hash, ToLower(other[i]) == ToLower(name[i])) << other;
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
