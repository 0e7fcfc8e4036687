// What the library's own form cannot hold of a population, as counts.
#ifndef STEPRT_TOOLS_LOSSES_H
#define STEPRT_TOOLS_LOSSES_H

#include <cstddef>

namespace steprt_tools {

struct Losses {
  std::size_t digits = 0;      // reals with more than six
  std::size_t texts = 0;       // of 256 characters or more
  std::size_t integers = 0;    // of more than 32 bits
  std::size_t complex = 0;     // complex instances
  std::size_t references = 0;  // to what is not written

  void AddReal(double real);
  void AddText(const char* text);
};

}  // namespace steprt_tools

#endif
