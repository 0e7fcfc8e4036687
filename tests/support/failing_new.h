// Lets allocations of the library fail. It takes its memory by the nothrow forms of new alone; those are replaced in
// the test program, and the throwing forms, which tests use themselves, are left as they are.
#ifndef STEPRT_TESTS_SUPPORT_FAILING_NEW_H
#define STEPRT_TESTS_SUPPORT_FAILING_NEW_H

namespace steprt_test {

// While it lives, the nth allocation from now, counted from 1, fails, or it and all behind it. One at a time.
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

}  // namespace steprt_test

#endif
