#include "write/values.h"

#include <cstring>

#include "read/transfer/keywords.h"
#include "support/number_print.h"
#include "write/numbering.h"
#include "xml/values/escape.h"

namespace steprt {
namespace {

// Clear text, which the element that it may be in must not take for markup.
void PutPiece(STEPtransfer* t, std::string_view text) {
  if (t->items.isInElement) return EscapeText(*t->file.out, text);
  t->file.out->Put(text);
}

}  // namespace

void PutInt(STEPtransfer* t, int value) {
  OutputFile& out = *t->file.out;
  out.Advance(IntToText(out.Buffer(kIntBuffer), value));
}

void PutReal(STEPtransfer* t, double value) {
  OutputFile& out = *t->file.out;
  out.Advance(RealToText(out.Buffer(kRealBuffer), value));
}

void PutNumber(STEPtransfer* t, int number) {
  OutputFile& out = *t->file.out;
  char* p = out.Buffer(1 + kIntBuffer);
  *p++ = '#';
  out.Advance(IntToText(p, number));
}

void PutReference(STEPtransfer* t, STEPheader* object) {
  if (!object) return t->file.out->Put('$');
  PutNumber(t, InstanceNumber(t, object));
}

void PutQuoted(STEPtransfer* t, const char* text) {
  OutputFile& out = *t->file.out;
  if (!text) return out.Put('$');
  out.Put('\'');
  while (const char* apostrophe = std::strchr(text, '\'')) {
    PutPiece(t, std::string_view(text, static_cast<std::size_t>(apostrophe + 1 - text)));
    out.Put('\'');
    text = apostrophe + 1;
  }
  PutPiece(t, text);
  out.Put('\'');
}

void PutWord(STEPtransfer* t, const char* word) { PutPiece(t, word); }

void PutEscaped(STEPtransfer* t, const char* text) {
  if (!text) return t->file.out->Put('$');
  EscapeText(*t->file.out, text);
}

const char* LogicalKeyword(int value) { return kLogicalKeywords[value == 0 || value == 1 ? value + 1 : 0]; }

}  // namespace steprt
