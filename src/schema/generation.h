// Counts the changes that the library makes to schema chains and their indexes, so that whoever remembers lookups can
// see that they may be out of date.
#ifndef STEPRT_SCHEMA_GENERATION_H
#define STEPRT_SCHEMA_GENERATION_H

namespace steprt {

inline constinit unsigned schemaGeneration = 0;

}  // namespace steprt

#endif
