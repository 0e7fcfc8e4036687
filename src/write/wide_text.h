// Texts as ISO 10303-21 has them: printable ASCII and its directives alone.
//
// A directive that is well-formed stays as it is. A backslash that begins none is doubled. What is not printable ASCII
// is encoded: UTF-8 by its characters, a byte that is no UTF-8 as a character of ISO 8859-1.
#ifndef STEPRT_WRITE_WIDE_TEXT_H
#define STEPRT_WRITE_WIDE_TEXT_H

#include <string_view>

namespace steprt {

// Receives the pieces of a text.
class TextSink {
 public:
  virtual void Put(std::string_view piece) = 0;

 protected:
  ~TextSink() = default;
};

// Puts the text into the sink, with its apostrophes doubled.
void PutStandardText(std::string_view text, TextSink& sink);

}  // namespace steprt

#endif
