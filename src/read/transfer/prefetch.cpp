#include "read/transfer/prefetch.h"

#include <cstddef>
#include <cstring>

#include "support/number_parse.h"

namespace steprt {
namespace {

constexpr std::uint32_t kReviewed = 256;           // records until the next review
constexpr std::uint32_t kMostFar = kReviewed / 4;  // of them, in a file in nearly ascending order
constexpr std::uint32_t kNear = 1024;              // numbers apart: 16 KB of entries, which a first-level cache holds
constexpr std::uint32_t kSmall = 1 << 13;          // records: 128 KB of entries, which a second-level cache holds

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
