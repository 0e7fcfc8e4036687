// What a name means: the scope of each schema, with what USE and REFERENCE bring into it.
#ifndef STEPRT_EXPRESS_NAMES_H
#define STEPRT_EXPRESS_NAMES_H

#include "context.h"

namespace express {

// Enters the declarations of each schema and the lists of its interfaces into Schema::names, and finds the schemas and
// declarations that the interfaces name. Reports names that are declared twice.
void ResolveNames(Context& context);

// What `name` means in `schema`, or null after a report. No report is made if a schema is missing that may declare it.
Declaration* Lookup(Context& context, Schema& schema, const Name& name);

// As Lookup, and a report if the declaration is no entity or no type.
Entity* LookupEntity(Context& context, Schema& schema, const Name& name);
DefinedType* LookupType(Context& context, Schema& schema, const Name& name);

}  // namespace express

#endif
