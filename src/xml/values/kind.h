// What kind of value a select's text is, as its shape alone tells it.
#ifndef STEPRT_XML_VALUES_KIND_H
#define STEPRT_XML_VALUES_KIND_H

namespace steprt {

// TOK_ERROR, TOK_REF, TOK_INT, TOK_REAL, TOK_TEXT, TOK_NAME, TOK_ENUM or TOK_NULL.
int ClassifyText(const char* text);

// [sign] {digit} [. {digit}] [(e | E) [sign] {digit} [blank, and anything behind it]]
bool IsRealText(const char* text);

}  // namespace steprt

#endif
