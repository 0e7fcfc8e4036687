#include "support/failing_new.h"

#include <cstddef>
#include <new>

namespace {

long made = 0;
long failing = 0;  // the number of the allocation that fails; 0 for none
bool allBehind = false;
bool failed = false;

bool MayAllocate() {
  ++made;
  if (failing == 0 || made < failing || (made > failing && !allBehind)) return true;
  failed = true;
  return false;
}

}  // namespace

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  if (!MayAllocate()) return nullptr;
  try {
    return ::operator new(size);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
  if (!MayAllocate()) return nullptr;
  try {
    return ::operator new[](size);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

namespace steprt_test {

FailingNew::FailingNew(long nth, Extent extent) {
  failing = made + nth;
  allBehind = extent == kAndAllBehind;
  failed = false;
}

FailingNew::~FailingNew() { failing = 0; }

bool FailingNew::HasFailed() const { return failed; }

long CountAllocations() { return made; }

}  // namespace steprt_test
