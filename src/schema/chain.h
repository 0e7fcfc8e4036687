// Chains of descriptors, as a whole.
#ifndef STEPRT_SCHEMA_CHAIN_H
#define STEPRT_SCHEMA_CHAIN_H

#include "steprt/schema.h"

namespace steprt {

// A descriptor without a name bears the empty one.
inline const char* NameOf(const APPobject0& schema) { return schema.name ? schema.name : ""; }

// The first descriptor of the chain that bears the name, in any case, or null.
APPobject0* FindSchema(APPobject0* chain, const char* name);

// Links `added` alone behind the chain: what followed it is cut off. It must not be on the chain.
void AppendSchema(APPobject0* chain, APPobject0* added);

}  // namespace steprt

#endif
