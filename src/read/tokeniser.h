// The tokens of ISO 10303-21 clear text. There are no comments and no texts over several lines.
#ifndef STEPRT_READ_TOKENISER_H
#define STEPRT_READ_TOKENISER_H

#include "read/records.h"

namespace steprt {

// The kind of the next token; its value lies in t->value, a text in t->buffer too, until a further token is read from
// the file. A caller gives a token back by storing its kind in t->pushedToken; there is room for one.
int NextToken(STEPtransfer* t);

}  // namespace steprt

#endif
