// Entities of a schema chain, by name and by type. A null schema has none.
#ifndef STEPRT_SCHEMA_LOOKUP_H
#define STEPRT_SCHEMA_LOOKUP_H

#include "steprt/schema.h"

namespace steprt {

// The row of that name or type, or null: from the index of `schema` when it has one, else the first along the chain.
APPentity* FindEntityByName(const char* name, APPobject0* schema);
APPentity* FindEntityByType(int type, APPobject0* schema);

// The first row of that type along the chain, whatever the index says.
APPentity* FindEntityLinear(int type, APPobject0* schema);

// Whether `actual` is `expected` or a subtype of it. True for a negative `expected`. A ring of supertypes ends it.
bool IsSubtype(APPobject0* schema, int expected, int actual);

}  // namespace steprt

#endif
