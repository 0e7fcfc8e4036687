// Takes the input as a sequence of operations on models, instances, aggregates, selects and strings. Each has a simple
// counterpart of standard containers, and the two are compared after every step.
#include <cstdint>

#include "bytes.h"
#include "edit_aggregates.h"
#include "edit_population.h"
#include "edit_selects.h"
#include "edit_strings.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Bytes bytes(data, size);
  fuzz::Aggregates aggregates;
  fuzz::Population population(aggregates);
  fuzz::Selects selects;
  fuzz::Strings strings;
  while (!bytes.IsEmpty()) {
    STEPheader* const object = population.Pick(bytes);
    switch (bytes.Below(8)) {
      case 0:
      case 1:
      case 2:
        aggregates.Step(bytes, object, population.Pick(bytes));
        break;
      case 3:
        selects.Step(bytes, object);
        break;
      case 4:
        strings.Step(bytes);
        break;
      default:
        population.Step(bytes, object);
    }
  }
  return 0;
}
