// Asks memory early for the entries of the instance table that the references further on in the block will need, and
// for the objects behind them. Where numbers come far from in order, each is a wait; asked for some numbers ahead, they
// are there in time. Only time depends on it: a number taken for one by mistake, such as one inside a text, does no
// harm.
#ifndef STEPRT_READ_TRANSFER_PREFETCH_H
#define STEPRT_READ_TRANSFER_PREFETCH_H

#include <cstdint>

#include "platform/input_file.h"
#include "read/transfer/entry_index.h"

namespace steprt {

class Prefetcher {
 public:
  // To be called with the number of each record. Goes on while many of them are far from the one before.
  void SeeRecord(int number);

  // To be called for each number as it is read: whether it is time to ask for further ones.
  bool IsDue() { return isOn_ && --left_ <= 0; }
  void Prefetch(const InputFile& in, const EntryIndex& entries);

 private:
  void PrefetchEntries(const char* limit, const EntryIndex& entries);
  void PrefetchObjects();

  bool isOn_ = false;
  std::uint32_t records_ = 0;
  std::uint32_t farRecords_ = 0;  // of the last so many
  std::uint32_t lastNumber_ = 0;

  int left_ = 0;                   // numbers to be read until more are asked for
  std::uint32_t block_ = 0;        // of the file, that has been begun
  const char* scanned_ = nullptr;  // its part whose numbers have been asked for

  static constexpr int kBatch = 8;    // numbers that are asked for together
  const STEPentry* entries_[kBatch];  // that were asked for last, and will have come; null for one in a map
  int count_ = 0;
};

}  // namespace steprt

#endif
