#include "platform/clock.h"

#include <ctime>

#include "platform/posix/system_time.h"

namespace steprt {

constinit TimeCall systemTime = std::time;

// localtime_r alone need not look at TZ again, and the host may set another time zone while it runs.
DateAndTime LocalNow() {
  tzset();
  const std::time_t now = systemTime(nullptr);
  std::tm local = {};
  if (!localtime_r(&now, &local)) gmtime_r(&now, &local);
  return {local.tm_mday, local.tm_mon + 1, local.tm_year + 1900, local.tm_hour, local.tm_min};
}

}  // namespace steprt
