#include "platform/clock.h"

#include <ctime>

#include "platform/posix/system_time.h"

namespace steprt {

constinit TimeCall systemTime = std::time;

// localtime_r alone need not look at TZ again, and the host may set another time zone while it runs.
DateAndTime LocalNow() {
  constexpr long kSecondsInMinute = 60;
  tzset();
  const std::time_t now = systemTime(nullptr);
  std::tm local = {};
  if (!localtime_r(&now, &local)) gmtime_r(&now, &local);
  const auto offset = static_cast<int>(local.tm_gmtoff / kSecondsInMinute);
  const int year = local.tm_year + 1900;
  return {local.tm_mday, local.tm_mon + 1, year, local.tm_hour, local.tm_min, local.tm_sec, offset};
}

}  // namespace steprt
