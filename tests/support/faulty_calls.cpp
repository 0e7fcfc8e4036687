#include "support/faulty_calls.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

#include "platform/posix/file_calls.h"

namespace steprt_test {
namespace {

Faults faults;
long calls = 0;
std::size_t bytes = 0;
bool failed = false;
bool interruptNext = false;

// How many bytes the call may take; below 0, with errno set, when it fails.
ssize_t Allow(std::size_t size) {
  if (faults.interrupted && std::exchange(interruptNext, !interruptNext)) return errno = EINTR, -1;
  ++calls;
  if (faults.failing && (calls == faults.failing || (calls > faults.failing && faults.allBehind))) {
    failed = true;
    if (faults.error == 0) return 1;
    return errno = faults.error, -1;
  }
  return faults.atMost ? std::min<ssize_t>(static_cast<ssize_t>(size), faults.atMost()) : static_cast<ssize_t>(size);
}

ssize_t Count(ssize_t count) {
  if (count > 0) bytes += static_cast<std::size_t>(count);
  return count;
}

ssize_t Read(int handle, void* block, std::size_t size) {
  const ssize_t allowed = Allow(size);
  return allowed < 0 ? allowed : Count(::read(handle, block, static_cast<std::size_t>(allowed)));
}

ssize_t Write(int handle, const void* block, std::size_t size) {
  const ssize_t allowed = Allow(size);
  return allowed < 0 ? allowed : Count(::write(handle, block, static_cast<std::size_t>(allowed)));
}

}  // namespace

FaultyCalls::FaultyCalls(Faults wanted) {
  faults = std::move(wanted);
  calls = 0;
  bytes = 0;
  failed = false;
  interruptNext = true;
  steprt::fileCalls = {::open, Read, Write};
}

FaultyCalls::~FaultyCalls() { steprt::fileCalls = {::open, ::read, ::write}; }

long FaultyCalls::Count() const { return calls; }

std::size_t FaultyCalls::Bytes() const { return bytes; }

bool FaultyCalls::HasFailed() const { return failed; }

}  // namespace steprt_test
