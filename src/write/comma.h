// The comma rule of clear text: a comma precedes each item of a bracket but the first.
#ifndef STEPRT_WRITE_COMMA_H
#define STEPRT_WRITE_COMMA_H

#include "read/transfer/record.h"

namespace steprt {

// Writes the comma before an item, unless its bracket has just been opened. `kind` is the token kind of the item that
// follows.
inline void PutComma(STEPtransfer* t, int kind) {
  if (t->lastToken != TOK_OPEN) t->file.out->Put(',');
  t->lastToken = kind;
}

}  // namespace steprt

#endif
