// What the attribute readers share: how to reach an attribute's token, and how to continue after a bad one.
#ifndef STEPRT_READ_ATTRIBUTE_H
#define STEPRT_READ_ATTRIBUTE_H

#include "read/element_values.h"
#include "read/transfer/record.h"

namespace steprt {

// Returns whether a reader must take its value from the element of that name. In a standard read it notes the name.
inline bool TakesElement(STEPtransfer* t, const char* name) {
  if (!t->byName) return false;
  if (t->xml) return true;
  if (t->items.depth > 0) return false;
  t->attribute = name;
  if (t->items.isDocument) EnterElementValue(t, name);
  return false;
}

// Returns the kind of the attribute's first token, after a comma if there is one. A `;` closes the record: from then on
// it returns TOK_SEMI and reads nothing, so each further reader returns its neutral value.
int NextAttrToken(STEPtransfer* t);

// Skips a bad attribute whose first token has been read. Brackets are not counted: the first `)` ends a bracketed one.
// A `;` is pushed back for the next reader.
void SkipAttribute(STEPtransfer* t, int token);

// Returns the first position of `text` in `names`, compared case-insensitively, or -1 if it is not there.
int FindKeyword(const char* text, const char* const* names, int count);

}  // namespace steprt

#endif
