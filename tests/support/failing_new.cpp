#include "support/failing_new.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <new>

namespace {

long made = 0;
long failing = 0;  // the number of the allocation that fails; 0 for none
bool allBehind = false;
bool failed = false;

long liveBlocks = 0;
std::size_t liveBytes = 0;
std::size_t peakBytes = 0;

bool MayAllocate() {
  ++made;
  if (failing == 0 || made < failing || (made > failing && !allBehind)) return true;
  failed = true;
  return false;
}

enum class Form : std::size_t { kSingle = 0x51ac1e5151ac1e51, kArray = 0xa66a91a6a66a91a6, kGone = 0 };

// In front of each block; as long as its alignment asks for.
struct Head {
  std::size_t size;
  Form form;
};
static_assert(sizeof(Head) % __STDCPP_DEFAULT_NEW_ALIGNMENT__ == 0);

void* Take(std::size_t size, Form form) noexcept {
  auto* head = static_cast<Head*>(std::malloc(sizeof(Head) + size));
  if (!head) return nullptr;
  *head = {size, form};
  ++liveBlocks;
  liveBytes += size;
  peakBytes = std::max(peakBytes, liveBytes);
  return head + 1;
}

void* TakeOrThrow(std::size_t size, Form form) {
  void* block = Take(size, form);
  return block ? block : throw std::bad_alloc();
}

void GiveBack(void* block, Form form) noexcept {
  if (!block) return;
  Head* head = static_cast<Head*>(block) - 1;
  if (head->form != form) {
    std::fputs("a block went back by the wrong form of delete, or twice, or what lies in front of it was written to\n",
               stderr);
    std::abort();
  }
  head->form = Form::kGone;
  --liveBlocks;
  liveBytes -= head->size;
  std::free(head);
}

}  // namespace

void* operator new(std::size_t size) { return TakeOrThrow(size, Form::kSingle); }
void* operator new[](std::size_t size) { return TakeOrThrow(size, Form::kArray); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return MayAllocate() ? Take(size, Form::kSingle) : nullptr;
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
  return MayAllocate() ? Take(size, Form::kArray) : nullptr;
}
void operator delete(void* block) noexcept { GiveBack(block, Form::kSingle); }
void operator delete[](void* block) noexcept { GiveBack(block, Form::kArray); }
void operator delete(void* block, std::size_t) noexcept { GiveBack(block, Form::kSingle); }
void operator delete[](void* block, std::size_t) noexcept { GiveBack(block, Form::kArray); }
void operator delete(void* block, const std::nothrow_t&) noexcept { GiveBack(block, Form::kSingle); }
void operator delete[](void* block, const std::nothrow_t&) noexcept { GiveBack(block, Form::kArray); }

namespace steprt_test {

FailingNew::FailingNew(long nth, Extent extent) {
  failing = made + nth;
  allBehind = extent == kAndAllBehind;
  failed = false;
}

FailingNew::~FailingNew() { failing = 0; }

bool FailingNew::HasFailed() const { return failed; }

long CountAllocations() { return made; }

long LiveBlocks() { return liveBlocks; }

std::size_t LiveBytes() { return liveBytes; }

std::size_t PeakBytes() { return peakBytes; }

void ResetPeak() { peakBytes = liveBytes; }

}  // namespace steprt_test
