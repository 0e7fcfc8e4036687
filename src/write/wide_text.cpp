#include "write/wide_text.h"

#include <cstddef>

#include "steprt/encoding.h"

namespace steprt {
namespace {

using detail::HexDigit;
using detail::HexValue;
using detail::IsPlain;
using detail::kNoCharacter;
using detail::TakeUtf8;

std::size_t DigitsAt(std::string_view text, std::size_t at) {
  std::size_t end = at;
  while (end < text.size() && HexValue(text[end]) >= 0) ++end;
  return end - at;
}

// What a text begins with.
struct Directive {
  std::size_t length;
  bool isWellFormed;
};

// `\X2\` or `\X4\` with its characters and its end.
Directive ExtendedDirective(std::string_view text, std::size_t width) {
  const std::size_t digits = DigitsAt(text, 4);
  const bool isEnded = text.substr(4 + digits, 4) == "\\X0\\";
  return {4 + digits + (isEnded ? 4 : 0), isEnded && digits > 0 && digits % width == 0};
}

// The text begins with a backslash. Where it begins no directive, DecodeTo keeps just as many bytes.
Directive DirectiveOf(std::string_view text) {
  const auto begins = [text](std::string_view with) { return text.substr(0, with.size()) == with; };
  if (begins("\\\\")) return {2, true};
  if (begins("\\X2\\")) return ExtendedDirective(text, 4);
  if (begins("\\X4\\")) return ExtendedDirective(text, 8);
  if (begins("\\X0\\")) return {4, false};
  const bool isWhole = text.size() > 3;
  if (begins("\\X\\")) return DigitsAt(text, 3) >= 2 ? Directive{5, true} : Directive{3, false};
  if (begins("\\S\\")) return isWhole && text[3] >= ' ' && text[3] <= '~' ? Directive{4, true} : Directive{3, false};
  const bool isAlphabet = begins("\\P") && isWhole && text[2] >= 'A' && text[2] <= 'Z' && text[3] == '\\';
  return isAlphabet ? Directive{4, text[2] <= 'I'} : Directive{1, false};
}

// How many bytes the text begins with that are UTF-8, but not printable ASCII.
std::size_t Utf8Length(std::string_view text) {
  std::string_view rest = text;
  std::size_t length = 0;
  while (!rest.empty() && !IsPlain(rest[0]) && rest[0] != '\\' && TakeUtf8(rest) != kNoCharacter) {
    length = text.size() - rest.size();
  }
  return length;
}

// Puts the text with every one of these bytes doubled.
void PutDoubled(std::string_view text, char doubled, TextSink& sink) {
  for (std::size_t at; (at = text.find(doubled)) != std::string_view::npos;) {
    sink.Put(text.substr(0, at + 1));
    sink.Put(text.substr(at, 1));
    text.remove_prefix(at + 1);
  }
  sink.Put(text);
}

// Puts what the text begins with: one directive, backslash or character, or adjacent characters of UTF-8. Returns how
// many bytes that was.
std::size_t PutEncoded(std::string_view text, TextSink& sink) {
  if (text[0] == '\\') {
    const Directive directive = DirectiveOf(text);
    PutDoubled(text.substr(0, directive.length), directive.isWellFormed ? '\'' : '\\', sink);
    return directive.length;
  }
  if (const std::size_t length = Utf8Length(text)) {
    EncodeTo(text.substr(0, length), [&sink](std::string_view piece) { sink.Put(piece); });
    return length;
  }
  const auto byte = static_cast<unsigned char>(text[0]);
  const char directive[] = {'\\', 'X', '\\', HexDigit(byte >> 4), HexDigit(byte)};
  sink.Put(std::string_view(directive, sizeof directive));
  return 1;
}

}  // namespace

void PutStandardText(std::string_view text, TextSink& sink) {
  while (!text.empty()) {
    std::size_t length = 0;
    while (length < text.size() && IsPlain(text[length])) ++length;
    if (length > 0) {
      PutDoubled(text.substr(0, length), '\'', sink);
    } else {
      length = PutEncoded(text, sink);
    }
    text.remove_prefix(length);
  }
}

}  // namespace steprt
