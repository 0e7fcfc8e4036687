// The system's clock, as a variable, so that a test can set it to a day of its choice.
#ifndef STEPRT_PLATFORM_POSIX_SYSTEM_TIME_H
#define STEPRT_PLATFORM_POSIX_SYSTEM_TIME_H

#include <ctime>

namespace steprt {

using TimeCall = std::time_t (*)(std::time_t* result);

extern TimeCall systemTime;

}  // namespace steprt

#endif
