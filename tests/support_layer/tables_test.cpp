// The tools that tables are made of: the hash table, its hashes, and the pool of records. And the stack, which grows as
// the pool does.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/ascii.h"
#include "support/failing_new.h"
#include "support/hash.h"
#include "support/hash_table.h"
#include "support/pool.h"
#include "support/stack.h"

namespace {

using namespace steprt;
using steprt_test::FailingNew;

struct Slot {
  std::uint32_t number;
  std::uint32_t value;
  bool IsFree() const { return value == 0; }
};

// Values of numbers, in a table that is filled as far as the instance table's are.
struct Numbers {
  static std::uint64_t HashOf(const Slot& slot) { return HashNumber(slot.number, ProcessSeed()); }
  Slot* Find(std::uint32_t number) const {
    return table.Find(HashOf({number, 0}), [=](const Slot& slot) { return slot.number == number; });
  }
  bool Add(std::uint32_t number, std::uint32_t value) {
    if (!table.Reserve(1, HashOf)) return false;
    *Find(number) = {number, value};
    table.NoteTaken();
    return true;
  }

  HashTable<Slot, 7> table;
};

TEST(HashTable, ASlotThatIsTakenIsFoundWhereverItMoves) {
  const std::size_t before = steprt_test::LiveBytes();
  Numbers numbers;
  EXPECT_EQ(numbers.Find(0), nullptr);
  for (std::uint32_t i = 0; i < 10'000; ++i) {
    ASSERT_TRUE(numbers.Add(i * 256, i + 1));
    ASSERT_EQ(numbers.Find(i * 256)->value, i + 1);
    ASSERT_EQ(numbers.Find(i * 128)->value, i % 2 ? 0 : i / 2 + 1);
    ASSERT_TRUE(i < 100 || steprt_test::LiveBytes() - before <= 14 * (i + 1)) << "14 bytes a number, after " << i;
  }
  EXPECT_EQ(numbers.table.Count(), 10'000u);
  for (const std::size_t kept : {std::size_t{1} << 20, std::size_t{0}}) {
    numbers.table.Clear(kept);
    EXPECT_TRUE(!numbers.Find(256) || numbers.Find(256)->IsFree());
    EXPECT_EQ(steprt_test::LiveBytes() > before, kept > 0);
  }
}

TEST(HashTable, KeepsWhatItHoldsWhenMemoryRunsOutAndGoesOnWhenThereIsSome) {
  Numbers numbers;
  std::uint32_t count = 0;
  {
    const FailingNew failing(3, FailingNew::kAndAllBehind);
    while (numbers.Add(count, count + 1)) ++count;
  }
  EXPECT_GT(count, 50u);
  for (std::uint32_t i = 0; i < 2 * count; ++i) {
    ASSERT_TRUE(i < count || numbers.Add(i, i + 1));
    ASSERT_EQ(numbers.Find(i)->value, i + 1);
  }
}

struct HashSlot {
  std::uint64_t hash;
  bool IsFree() const { return hash == 0; }
};

// How many slots the search for a key that is there meets, on average. The theory of linear probing says 1.5 for random
// hashes in a table that is half full, and 4.5 if it is full to seven eighths.
template <std::size_t kFullEighths>
double MeanProbes(const std::vector<std::uint64_t>& hashes) {
  HashTable<HashSlot, kFullEighths> table;
  EXPECT_TRUE(table.Reserve(hashes.size(), [](const HashSlot& slot) { return slot.hash; }));
  double probes = 0;
  const auto find = [&](std::uint64_t hash) {
    return table.Find(hash, [&](const HashSlot& slot) {
      ++probes;
      return slot.hash == hash;
    });
  };
  for (const std::uint64_t hash : hashes) *find(hash) = {hash};
  probes = 0;
  for (const std::uint64_t hash : hashes) EXPECT_EQ(find(hash)->hash, hash);
  return probes / static_cast<double>(hashes.size());
}

TEST(Hash, NumbersAtRegularDistancesDoNotCrowd) {
  for (const std::uint32_t distance : {1u, 3u, 64u, 255u, 256u, 4096u, 40503u, 65536u}) {
    std::vector<std::uint64_t> hashes;
    for (std::uint32_t i = 0; i < 60'000; ++i) hashes.push_back(HashNumber(i * distance, ProcessSeed()));
    EXPECT_LT(MeanProbes<4>(hashes), 3) << distance;
    EXPECT_LT(MeanProbes<7>(hashes), 12) << distance;
  }
}

// Names that differ only in the middle, where a hasty hash does not look, or in bits that a hasty folding drops.
TEST(Hash, NamesThatAreMadeAlikeDoNotCrowd) {
  for (const std::string digits : {"ab", "\xc1\xe1", "[{", "0\x10"}) {
    std::vector<std::uint64_t> hashes;
    for (int i = 0; i < 4096; ++i) {
      std::string middle;
      for (int bit = 0; bit < 12; ++bit) middle += digits[static_cast<std::size_t>(i >> bit & 1)];
      hashes.push_back(HashNoCase("attribute" + middle + "attribute", ProcessSeed()));
    }
    EXPECT_LT(MeanProbes<4>(hashes), 3) << digits;
  }
}

// Case folds for ASCII letters only, and every byte counts: otherwise a document could be made to collide.
TEST(Hash, NamesHashAlikeOnlyIfTheyDifferInTheCaseOfLetters) {
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

TEST(Stack, KeepsItsItemsWhenItOutgrowsItsBufferAndWhenMemoryRunsOut) {
  const long before = steprt_test::LiveBlocks();
  {
    Stack<int, 4> stack;
    for (int i = 0; i < 1000; ++i) {
      EXPECT_TRUE(i >= 4 || steprt_test::LiveBlocks() == before) << "the first items need no heap";
      if (i >= 4 && (i & (i - 1)) == 0) {
        const FailingNew failing(1);
        ASSERT_FALSE(stack.Push(i)) << "it is full at each power of two";
      }
      ASSERT_TRUE(stack.Push(i));
    }
    for (int i = 1000; i-- > 0; stack.Pop()) ASSERT_EQ(stack.Top(), i);
    EXPECT_EQ(stack.Count(), 0);
  }
  EXPECT_EQ(steprt_test::LiveBlocks(), before);
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
