// The steps that give a parsed model its meaning, in the order in which they run. Each fills in members of schema.h
// that are marked as resolved, and reports what is contradictory.
#ifndef STEPRT_EXPRESS_RESOLVER_H
#define STEPRT_EXPRESS_RESOLVER_H

#include "context.h"

namespace express {

// references.cpp: the target of each name in a type, an entity head, a constraint or a rule.
void ResolveReferences(Context& context);

// inheritance.cpp: cuts rings of supertypes, fills in subtypes and constraints. Returns all entities, each after its
// supertypes.
std::vector<Entity*> ResolveInheritance(Context& context);

// attributes.cpp: what is redeclared, the attributes that inverse ones name, and the slots.
void ResolveAttributes(Context& context, const std::vector<Entity*>& supertypesFirst);

// types.cpp: cuts rings of types, fills in extensions, all items of enumerations and all members of selects.
void ResolveTypes(Context& context);

}  // namespace express

#endif
