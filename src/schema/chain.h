// Chains of descriptors as a whole: a model's schema is the first descriptor of one. Libraries that are attached later
// append theirs.
#ifndef STEPRT_SCHEMA_CHAIN_H
#define STEPRT_SCHEMA_CHAIN_H

#include "steprt/schema.h"

namespace steprt {

// The descriptor's name, which is empty if it has none.
inline const char* NameOf(const APPobject0& schema) { return schema.name ? schema.name : ""; }

// The first descriptor of the chain with this name, compared case-insensitively; null if there is none.
APPobject0* FindSchema(APPobject0* chain, const char* name);

// Appends `added` alone: what followed it is cut off. It must not be on the chain already.
void AppendSchema(APPobject0* chain, APPobject0* added);

}  // namespace steprt

#endif
