// The tokens of ISO 10303-21 clear text. There are no comments and no texts over several lines.
#ifndef STEPRT_READ_TOKENISER_H
#define STEPRT_READ_TOKENISER_H

#include "read/transfer/record.h"

namespace steprt {

// The kind of the next token; its value lies in t->value, a text in t->buffer too, until a further token is read from
// the file. A caller gives a token back by storing its kind in t->pushedToken; there is room for one.
int NextToken(STEPtransfer* t);

// The same where one delimiter is likely to come next: `c`, whose kind is `kind`.
inline int NextToken(STEPtransfer* t, char c, int kind) {
  InputFile& in = *t->file.in;
  if (t->pushedToken != kNoToken || *in.Cursor() != c || in.Cursor() == in.Limit()) return NextToken(t);
  in.MoveTo(in.Cursor() + 1);
  return kind;
}

}  // namespace steprt

#endif
