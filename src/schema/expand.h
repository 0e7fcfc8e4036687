// A type's subtypes, depth first. ExtractTypes of schema.h stands on these.
#ifndef STEPRT_SCHEMA_EXPAND_H
#define STEPRT_SCHEMA_EXPAND_H

#include "steprt/schema.h"

namespace steprt {

// Store the types of the subtypes of `name` into `out`, and give the capacity that is left; the rest is dropped. The
// direct subtypes are stored whatever the depth, theirs from a depth of 2 on, and so forth. Where supertypes form a
// ring, the types repeat until depth or capacity ends them. Without memory for a level, which takes a tree of more than
// 32, the subtypes on it are dropped too.
//
// The first goes along the chain, in row order, unless `schema` has an index; then it is the second, which goes by the
// index's tree. A name without a row has no subtypes there.
int ExpandSubtypes(APPobject0* schema, const char* name, int* out, int capacity, int depth);
int ExpandIndexedSubtypes(APPindexNode** table, const char* name, int* out, int capacity, int depth);

}  // namespace steprt

#endif
