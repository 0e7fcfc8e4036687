// A type's subtypes, depth first. ExtractTypes of schema.h is made of these.
#ifndef STEPRT_SCHEMA_EXPAND_H
#define STEPRT_SCHEMA_EXPAND_H

#include "steprt/schema.h"

namespace steprt {

// Store the types of the subtypes of `name` into `out` and return the capacity that is left. What does not fit is
// dropped. The direct subtypes are stored whatever the depth is; those of the next level from a depth of 2 on, and so
// forth. If supertypes form a ring, types repeat until depth or capacity is used up. When memory runs out for a level,
// which takes a tree of more than 32, the subtypes on it are dropped too.
//
// The first follows the chain, in row order. If `schema` has an index, it does what the second does, which follows the
// tree of the index; there, a name without a row has no subtypes.
int ExpandSubtypes(APPobject0* schema, const char* name, int* out, int capacity, int depth);
int ExpandIndexedSubtypes(APPindexNode** table, const char* name, int* out, int capacity, int depth);

}  // namespace steprt

#endif
