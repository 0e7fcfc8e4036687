// The tokens of ISO 10303-21 clear text.
//
//   token = word | text | "$" | "*" | "=" | "(" | ")" | "," | ";"
//
// Any number of blanks, tabs and line ends may precede a token. There are no comments, and no texts over several lines.
#ifndef STEPRT_READ_TOKENISER_H
#define STEPRT_READ_TOKENISER_H

#include "platform/input_file.h"
#include "read/transfer/record.h"

namespace steprt {

// Reads the next token and returns its kind. t->value holds its value, and t->buffer its text, until the next token is
// read from the file. A caller pushes a token back by storing its kind in t->pushedToken, which holds one.
int NextToken(STEPtransfer* t);

// The same, faster if the next byte is the delimiter `c`, whose kind is `kind`. It is not for a line feed.
inline int NextToken(STEPtransfer* t, char c, int kind) {
  InputFile& in = *t->file.in;
  if (t->pushedToken != kNoToken || *in.Cursor() != c) return NextToken(t);
  in.MoveTo(in.Cursor() + 1);
  return kind;
}

// Reads the blanks before the next token. Returns whether the byte after them is `c`, and does not read that.
bool NextByteIs(STEPtransfer* t, char c);

}  // namespace steprt

#endif
