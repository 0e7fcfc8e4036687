// A date and time zone of the host.
#ifndef STEPRT_TESTS_SUPPORT_MOMENT_H
#define STEPRT_TESTS_SUPPORT_MOMENT_H

#include <cstdlib>
#include <ctime>
#include <string>

#include "platform/posix/system_time.h"

namespace steprt_test {

// Sets the system's clock and the host's time zone for its own life.
class Moment {
 public:
  Moment(std::time_t time, const char* zone) {
    static std::time_t now;
    now = time;
    const char* before = getenv("TZ");
    hadZone_ = before != nullptr;
    if (hadZone_) zone_ = before;
    setenv("TZ", zone, 1);
    steprt::systemTime = [](std::time_t*) { return now; };
  }
  ~Moment() {
    steprt::systemTime = std::time;
    hadZone_ ? setenv("TZ", zone_.c_str(), 1) : unsetenv("TZ");
  }

 private:
  bool hadZone_ = false;
  std::string zone_;
};

}  // namespace steprt_test

#endif
