// The local date and time.
#ifndef STEPRT_PLATFORM_CLOCK_H
#define STEPRT_PLATFORM_CLOCK_H

namespace steprt {

struct DateAndTime {
  int day;    // 1 to 31
  int month;  // 1 to 12
  int year;
  int hour;
  int minute;
  int second;  // 0 to 60
  int offset;  // minutes ahead of UTC
};

DateAndTime LocalNow();

}  // namespace steprt

#endif
