// What the front end refuses to exceed, whatever a text asks for. Each limit ends in a diagnostic.
#ifndef STEPRT_EXPRESS_LIMITS_H
#define STEPRT_EXPRESS_LIMITS_H

#include <cstddef>

namespace express {

struct Limits {
  std::size_t textBytes = std::size_t{1} << 30;  // of one source; less than 4 GiB
  std::size_t depth = 100;                       // nested aggregates, nested brackets of a supertype expression
  std::size_t errors = 100;                      // reading stops at this many
  // Steps spent on results that can be larger than the text: inherited attributes, members of nested selects, names
  // that are searched through chains of schemas. AP242 of 2014, with 1,726 entities, needs 11,429.
  std::size_t steps = 4'000'000;
};

}  // namespace express

#endif
