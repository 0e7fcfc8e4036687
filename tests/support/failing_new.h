// Counts what is taken by new, and lets allocations of the library fail. It takes its memory by the nothrow forms
// alone, so only those fail; tests use the throwing ones. All forms are replaced in the test program. A block that goes
// back by the wrong form of delete ends the program.
#ifndef STEPRT_TESTS_SUPPORT_FAILING_NEW_H
#define STEPRT_TESTS_SUPPORT_FAILING_NEW_H

#include <cstddef>

namespace steprt_test {

// While it lives, the nth allocation from now, counted from 1, fails, or it and all after it. One at a time.
class FailingNew {
 public:
  enum Extent { kAlone, kAndAllBehind };

  explicit FailingNew(long nth, Extent extent = kAlone);
  ~FailingNew();
  FailingNew(const FailingNew&) = delete;
  FailingNew& operator=(const FailingNew&) = delete;

  // Whether an allocation has failed: false says that the code under test made fewer than n.
  bool HasFailed() const;
};

// How many allocations the library has made so far.
long CountAllocations();

// Blocks and bytes taken by any form and not given back; PeakBytes is the most there were since the last ResetPeak.
long LiveBlocks();
std::size_t LiveBytes();
std::size_t PeakBytes();
void ResetPeak();

}  // namespace steprt_test

#endif
