// A write of the library causes no signal in the host.
#ifndef STEPRT_PLATFORM_POSIX_QUIET_SIGNALS_H
#define STEPRT_PLATFORM_POSIX_QUIET_SIGNALS_H

#include <cerrno>
#include <csignal>
#include <ctime>
#include <initializer_list>

namespace steprt {

// As long as it lives, it keeps the signals of a failing write (a closed pipe, a size limit) from the host. A signal
// that was pending before stays pending, and errno tells why the write has failed.
class QuietSignals {
 public:
  QuietSignals() {
    sigset_t pending;
    sigemptyset(&pending);
    sigpending(&pending);
    sigemptyset(&ours_);
    for (const int signal : {SIGPIPE, SIGXFSZ}) {
      if (!sigismember(&pending, signal)) sigaddset(&ours_, signal);
    }
    pthread_sigmask(SIG_BLOCK, &ours_, &before_);
  }
  ~QuietSignals() {
    const int reason = errno;
    const timespec now = {0, 0};
    while (sigtimedwait(&ours_, nullptr, &now) > 0) {
    }
    pthread_sigmask(SIG_SETMASK, &before_, nullptr);
    errno = reason;
  }
  QuietSignals(const QuietSignals&) = delete;
  QuietSignals& operator=(const QuietSignals&) = delete;

 private:
  sigset_t ours_;
  sigset_t before_;
};

}  // namespace steprt

#endif
