// What a form cannot hold of a population, as counts.
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
  std::size_t entities = 0;    // records and parts of entities that the schema does not have
  std::size_t sections = 0;    // of edition 3
  std::size_t infinite = 0;    // reals beyond the range of a double
  std::size_t others = 0;      // records that are not written for another reason

  void AddReal(double real);
  void AddText(const char* text);
};

}  // namespace steprt_tools

#endif
