// The changes that the library makes to schema chains and their indexes: how many there were, and which descriptors the
// latest of them concerned. So whoever remembers lookups can see whether they may be out of date.
#ifndef STEPRT_SCHEMA_GENERATION_H
#define STEPRT_SCHEMA_GENERATION_H

#include "steprt/schema.h"

namespace steprt {

inline constexpr unsigned kNotedChanges = 8;

inline constinit unsigned schemaGeneration = 0;
inline constinit const APPobject0* notedChanges[kNotedChanges] = {};  // to be compared, no more: they may have gone

// The descriptor's index is another now, or its place in a chain.
inline void NoteChange(const APPobject0* schema) { notedChanges[schemaGeneration++ % kNotedChanges] = schema; }

// Whether a descriptor of the chain may have changed since the generation.
inline bool HasChanged(const APPobject0* chain, unsigned since) {
  if (schemaGeneration - since > kNotedChanges) return true;
  for (; since != schemaGeneration; ++since) {
    const APPobject0* changed = notedChanges[since % kNotedChanges];
    for (const APPobject0* each = chain; each; each = each->next) {
      if (each == changed) return true;
    }
  }
  return false;
}

}  // namespace steprt

#endif
