// Comes before the system's calls on open files for its own life: the n-th read or write can fail, and each can
// fall short. One at a time.
#ifndef STEPRT_TESTS_SUPPORT_FAULTY_CALLS_H
#define STEPRT_TESTS_SUPPORT_FAULTY_CALLS_H

#include <cstddef>
#include <functional>

namespace steprt_test {

struct Faults {
  long failing = 0;               // the call that fails, counted from 1; 0 for none
  bool allBehind = false;         // and all after it
  int error = 0;                  // with this errno; 0: it does not fail but takes one byte
  bool interrupted = false;       // every other call is interrupted first
  std::function<int()> atMost{};  // bytes that a call takes at most; empty: as many as asked for
};

class FaultyCalls {
 public:
  explicit FaultyCalls(Faults faults);
  ~FaultyCalls();
  FaultyCalls(const FaultyCalls&) = delete;
  FaultyCalls& operator=(const FaultyCalls&) = delete;

  long Count() const;         // calls so far, reads and writes, without those that were interrupted
  std::size_t Bytes() const;  // that they took
  bool HasFailed() const;     // whether one failed by `failing`
};

}  // namespace steprt_test

#endif
