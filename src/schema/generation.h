// Counts the changes that the library makes to schema chains and their indexes, and notes which descriptors the latest
// ones concerned. A snapshot of lookups can so tell whether it is out of date, and a change to one chain leaves the
// snapshots of others valid.
#ifndef STEPRT_SCHEMA_GENERATION_H
#define STEPRT_SCHEMA_GENERATION_H

#include "steprt/schema.h"

namespace steprt {

inline constexpr unsigned kNotedChanges = 8;

inline constinit unsigned schemaGeneration = 0;
inline constinit const APPobject0* notedChanges[kNotedChanges] = {};  // only compared, never used: they may be gone

// Call it after a change to the descriptor's index or to its place in a chain.
inline void NoteChange(const APPobject0* schema) { notedChanges[schemaGeneration++ % kNotedChanges] = schema; }

// Whether a descriptor of the chain may have changed since that generation. If too many changes were made in between to
// tell, the answer is true.
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
