#include "allocation_log.h"

#include <algorithm>
#include <cstdlib>
#include <new>
#include <unordered_map>
#include <vector>

namespace bench {
namespace {

// One call of new or delete. A release has no bytes.
struct Event {
  void* block;
  std::size_t bytes;
};

std::vector<Event> events;
bool isLogging = false;

// The log's own blocks are left out.
void Log(void* block, std::size_t bytes) {
  isLogging = false;
  events.push_back({block, bytes});
  isLogging = true;
}

// What the allocator takes for a request: a header of eight bytes, and 16 bytes to the step.
std::size_t Footprint(std::size_t bytes) { return std::max<std::size_t>(32, (bytes + 8 + 15) / 16 * 16); }

void* Take(std::size_t bytes) {
  void* block = std::malloc(bytes ? bytes : 1);
  if (isLogging && block) Log(block, Footprint(bytes));
  return block;
}

void Release(void* block) {
  if (isLogging && block) Log(block, 0);
  std::free(block);
}

// The events that took a block which was released again.
std::vector<bool> FindPassing(std::size_t* lasting) {
  std::unordered_map<void*, std::size_t> live;  // block to event
  std::vector<bool> isPassing(events.size());
  for (std::size_t i = 0; i < events.size(); ++i) {
    if (events[i].bytes > 0) {
      live[events[i].block] = i;
      continue;
    }
    const auto taken = live.find(events[i].block);
    if (taken == live.end()) continue;  // from before the log began
    isPassing[taken->second] = true;
    events[i].bytes = 0;
    live.erase(taken);
  }
  *lasting = 0;
  for (const auto& [block, event] : live) *lasting += events[event].bytes;
  return isPassing;
}

std::size_t PeakOf(const std::vector<bool>& isPassing) {
  std::unordered_map<void*, std::size_t> held;  // block to bytes
  std::size_t now = 0;
  std::size_t peak = 0;
  for (std::size_t i = 0; i < events.size(); ++i) {
    if (isPassing[i]) {
      held[events[i].block] = events[i].bytes;
      now += events[i].bytes;
      peak = std::max(peak, now);
    } else if (events[i].bytes == 0) {
      const auto found = held.find(events[i].block);
      if (found == held.end()) continue;
      now -= found->second;
      held.erase(found);
    }
  }
  return peak;
}

}  // namespace

void BeginAllocationLog() {
  events.clear();
  isLogging = true;
}

Allocations EndAllocationLog() {
  isLogging = false;
  Allocations allocations = {};
  const std::vector<bool> isPassing = FindPassing(&allocations.lasting);
  allocations.passing = PeakOf(isPassing);
  std::vector<Event>().swap(events);
  return allocations;
}

}  // namespace bench

void* operator new(std::size_t bytes) {
  if (void* block = bench::Take(bytes)) return block;
  throw std::bad_alloc();
}
void* operator new[](std::size_t bytes) { return operator new(bytes); }
void* operator new(std::size_t bytes, const std::nothrow_t&) noexcept { return bench::Take(bytes); }
void* operator new[](std::size_t bytes, const std::nothrow_t&) noexcept { return bench::Take(bytes); }
void operator delete(void* block) noexcept { bench::Release(block); }
void operator delete[](void* block) noexcept { bench::Release(block); }
void operator delete(void* block, std::size_t) noexcept { bench::Release(block); }
void operator delete[](void* block, std::size_t) noexcept { bench::Release(block); }
void operator delete(void* block, const std::nothrow_t&) noexcept { bench::Release(block); }
void operator delete[](void* block, const std::nothrow_t&) noexcept { bench::Release(block); }
