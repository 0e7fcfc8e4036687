// What the tokens of ISO 10303-21 have beyond those of the library's own form:
//
//   comment = "/*" {any byte} "*/", between any two tokens
//   text    = over several lines and of any length; line ends inside it do not belong to it
//   word    = of any length; a comment ends it; "!" or "&" before a letter makes it a name
//   binary  = '"' {digit | letter} '"', of any length
//
// The functions are for slow paths of the tokeniser, in a read that has a WideRead. They are never inlined, so that the
// tokeniser keeps its registers.
#ifndef STEPRT_READ_WIDE_TOKENS_H
#define STEPRT_READ_WIDE_TOKENS_H

#include "read/transfer/record.h"

namespace steprt {

// Skips a comment whose "/" has been read. Returns false, with nothing more read, if no "*" follows. A comment without
// an end is reported and ends with the file.
[[gnu::noinline]] bool SkipComment(STEPtransfer* t);

// Reads a text whose opening apostrophe has been read. t->value.text receives it. Returns false if the file ends before
// its end, which is reported.
[[gnu::noinline]] bool ScanWideText(STEPtransfer* t);

// Reads a word whose first byte has been read. Returns its kind, with its value in t->value.
[[gnu::noinline]] int WideWordToken(STEPtransfer* t, char first);

}  // namespace steprt

#endif
