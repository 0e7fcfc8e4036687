#include "read/transfer/prefetch.h"

#include <cstddef>
#include <cstring>

#include "support/number_parse.h"

namespace steprt {

// A small table lies in the cache anyway.
void Prefetcher::SeeRecord(int number) {
  constexpr std::uint32_t kReviewed = 256;
  constexpr std::uint32_t kNear = 1024;
  constexpr std::uint32_t kSmall = 1 << 13;
  const auto bits = static_cast<std::uint32_t>(number);
  if (bits - lastNumber_ + kNear > 2 * kNear) ++farRecords_;
  lastNumber_ = bits;
  if (++records_ % kReviewed != 0) return;
  isOn_ = farRecords_ > kReviewed / 4 && records_ > kSmall;
  farRecords_ = 0;
}

// Whatever begins behind the cursor is begun anew: another block, or a part that was passed over. From there on the
// entries are asked for two batches ahead of what is read, and the objects one.
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
