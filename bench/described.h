// The client of building.h once more: the same entities, as classes that describe their attributes.
#ifndef STEPRT_BENCH_DESCRIBED_H
#define STEPRT_BENCH_DESCRIBED_H

#include <steprt/record.h>

#include <cstdint>

namespace bench {

// Its descriptor has the rows of BuildingSchema, but for their functions.
class DescribedModel : public steprt::Model {
 public:
  DescribedModel();
};

// Equal for a chain of these classes and a chain of those of building.h exactly when, as good as certainly, they hold
// equal objects in the same order, as Fingerprint tells it for two of the latter. It uses the field `number`.
std::uint64_t DescribedFingerprint(STEPheader* first);
std::uint64_t BuildingFingerprint(STEPheader* first);

}  // namespace bench

#endif
