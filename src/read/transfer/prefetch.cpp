#include "read/transfer/prefetch.h"

#include <cstddef>
#include <cstring>

#include "support/number_parse.h"

namespace steprt {
namespace {

// Each was measured at its value, half and double, under callgrind with a simulated second-level cache of 2 MB: 200,000
// records, shuffled whole or in windows from a seed. "Waits" are the reads that missed that cache outside of Prefetch.

// Records until the next review. Half and double: 0.1 % of the instructions and of the waits, or less.
constexpr std::uint32_t kReviewed = 256;
// Of them, in a file in nearly ascending order. Half: 1 % more instructions in windows of 3,000, for 0.2 % fewer waits.
// Double: no change in windows of 3,000 or 12,000.
constexpr std::uint32_t kMostFar = kReviewed / 4;
// Numbers apart: 32 KB of entries. Half: 9 % more instructions in windows of 3,000, for 1 % fewer waits. Double: 0.2 %
// fewer in windows of 12,000, for 0.2 % more waits. Four times: 8 % fewer there, for 13 % more waits.
constexpr std::uint32_t kNear = 2048;
// Records: 128 KB of entries. Half: 3 % more instructions in a file of 6,000, no fewer waits. Double: 3 % fewer in one
// of 24,000, but 26 % more waits.
constexpr std::uint32_t kSmall = 1 << 13;

}  // namespace

void Prefetcher::SeeRecord(int number) {
  const auto bits = static_cast<std::uint32_t>(number);
  if (bits - lastNumber_ + kNear > 2 * kNear) ++farRecords_;
  lastNumber_ = bits;
  if (++records_ % kReviewed != 0) return;
  isOn_ = farRecords_ > kMostFar && records_ > kSmall;
  farRecords_ = 0;
}

// At another block, or after a part that was skipped, prefetching begins anew at the cursor. From there on, entries are
// prefetched two batches before they are needed, and objects one.
void Prefetcher::Prefetch(const InputFile& in, const EntryIndex& entries) {
  if (block_ != in.Blocks() || scanned_ < in.Cursor()) {
    block_ = in.Blocks();
    scanned_ = in.Cursor();
    PrefetchEntries(in.Limit(), entries);
    PrefetchObjects();
    PrefetchEntries(in.Limit(), entries);
  }
  PrefetchObjects();
  PrefetchEntries(in.Limit(), entries);
  left_ = kBatch;
}

void Prefetcher::PrefetchEntries(const char* limit, const EntryIndex& entries) {
  for (count_ = 0; count_ < kBatch; ++count_) {
    const auto length = static_cast<std::size_t>(limit - scanned_);
    const auto* mark = static_cast<const char*>(std::memchr(scanned_, '#', length));
    if (!mark) {
      scanned_ = limit;
      return;
    }
    Digits digits = {0, 0};
    scanned_ = ScanDigitsFast(mark + 1, &digits);
    entries_[count_] = entries.Prefetch(static_cast<int>(digits.value));
  }
}

void Prefetcher::PrefetchObjects() {
  for (int i = 0; i < count_; ++i) {
    if (entries_[i]) PrefetchType(entries_[i]->object);
  }
}

}  // namespace steprt
