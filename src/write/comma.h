// The comma rule of clear text.
#ifndef STEPRT_WRITE_COMMA_H
#define STEPRT_WRITE_COMMA_H

#include "read/transfer/record.h"

namespace steprt {

// Puts the comma in front of an attribute, unless its bracket has just been opened, and notes what comes behind it.
inline void PutComma(STEPtransfer* t, int kind) {
  if (t->lastToken != TOK_OPEN) t->file.out->Put(',');
  t->lastToken = kind;
}

}  // namespace steprt

#endif
