// The kind of a select's value in XML. The text alone decides it, since XML has no apostrophes around texts.
#ifndef STEPRT_XML_VALUES_KIND_H
#define STEPRT_XML_VALUES_KIND_H

namespace steprt {

// Returns a token kind: TOK_REF, TOK_INT, TOK_REAL, TOK_TEXT, TOK_NAME, TOK_ENUM or TOK_NULL. Returns TOK_ERROR for a
// text of nothing but blanks and signs.
int ClassifyText(const char* text);

// Returns whether `text` has this form. None of its parts need have a digit.
//
// real = [sign] {digit} ["." {digit}] [("E" | "e") [sign] {digit} [" " {byte}]]
bool IsRealText(const char* text);

}  // namespace steprt

#endif
