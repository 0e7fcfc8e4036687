// What all attribute readers share.
#ifndef STEPRT_READ_ATTRIBUTE_H
#define STEPRT_READ_ATTRIBUTE_H

#include "read/transfer/record.h"

namespace steprt {

// An attribute's token, behind one comma if there is one. From the record's `;` on it gives TOK_SEMI and reads nothing.
int NextAttrToken(STEPtransfer* t);

// Gets past a bad attribute, whose token has been read. Brackets are not counted: the first `)` ends a bracketed one.
void SkipAttribute(STEPtransfer* t, int token);

// The first position of `text` in `names`, in any case; -1 if there is none.
int FindKeyword(const char* text, const char* const* names, int count);

}  // namespace steprt

#endif
