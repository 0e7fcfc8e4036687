// Finds entities of a schema chain by name and by type. A null schema has none. See lookup_cache.h for the same during
// a transfer.
#ifndef STEPRT_SCHEMA_LOOKUP_H
#define STEPRT_SCHEMA_LOOKUP_H

#include "steprt/schema.h"

namespace steprt {

// The row of that name or type; null if there is none. If `schema` has an index, the index finds it; else it is the
// first along the chain.
APPentity* FindEntityByName(const char* name, APPobject0* schema);
APPentity* FindEntityByType(int type, APPobject0* schema);

// The first row of that type along the chain, even if there is an index.
APPentity* FindEntityLinear(int type, APPobject0* schema);

// Whether `actual` is `expected` or a subtype of it. A negative `expected` means any type. The walk through the
// supertypes also ends if they form a ring.
bool IsSubtype(APPobject0* schema, int expected, int actual);

}  // namespace steprt

#endif
