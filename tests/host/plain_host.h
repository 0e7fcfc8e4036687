// What is expected of the library is told by the C library's functions, which ask the host for its locale and for its
// rounding mode. For its own life this is a host that changes nothing: the locale "C", rounding to nearest.
#ifndef STEPRT_TESTS_HOST_PLAIN_HOST_H
#define STEPRT_TESTS_HOST_PLAIN_HOST_H

#include <locale.h>

#include <cfenv>

namespace steprt_test {

class PlainHost {
 public:
  PlainHost() : locale_(uselocale(Plain())), mode_(std::fegetround()) { std::fesetround(FE_TONEAREST); }
  ~PlainHost() {
    std::fesetround(mode_);
    uselocale(locale_);
  }
  PlainHost(const PlainHost&) = delete;
  PlainHost& operator=(const PlainHost&) = delete;

 private:
  static locale_t Plain() {
    static const locale_t plain = newlocale(LC_ALL_MASK, "C", nullptr);
    return plain;
  }

  const locale_t locale_;
  const int mode_;
};

}  // namespace steprt_test

#endif
