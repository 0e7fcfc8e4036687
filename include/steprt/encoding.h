/// @file
/// Converts texts between UTF-8 and the directives of ISO 10303-21 (strings: 6.4.3 of its third edition).
///
///     std::string text = steprt::EncodeText("5 \u20AC");   // 5 \X2\20AC\X0\ in the file
///     std::string utf8 = steprt::DecodeText(text);         // and back
///     door.Name.SetUtf8(utf8);                             // a text attribute of record.h does the same
///
/// The encoded text is what rSTEPtext returns and wSTEPtext takes. Its apostrophes are single: only the file doubles
/// them. All functions take any bytes, byte 0 too. The time they need is proportional to the number of bytes.
///
/// | Encoded | Character |
/// |---|---|
/// | blank to `~`, except `\` | the same |
/// | `\\` | `\` |
/// | `\X\hh` | U+00hh |
/// | `\X2\hhhh...\X0\` | one for each four digits |
/// | `\X4\hhhhhhhh...\X0\` | one for each eight digits |
/// | `\S\c` | the byte c + 128 of the current alphabet, for a c from blank to `~` |
/// | `\PA\` to `\PI\` | none: the alphabet is ISO 8859-1 to 8859-9 until the next one; a text begins with `\PA\` |
///
/// The functions are in the header for two reasons. A std::string must not cross the boundary of a library, because the
/// client's compiler may be another one. And the library itself can use EncodeTo and DecodeTo: they neither allocate
/// nor throw, unless the caller's sink does.
///
/// Any number of threads may call them.
#ifndef STEPRT_ENCODING_H
#define STEPRT_ENCODING_H

#include <steprt/alphabets.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace steprt {

/// What a conversion could not convert.
struct TextFaults {
  std::size_t malformed = 0;  ///< directives that are malformed or not ended, and lone backslashes: they are unchanged
  std::size_t replaced = 0;   ///< what is no character: it became U+FFFD

  bool None() const { return malformed == 0 && replaced == 0; }  ///< the conversion is complete
};

/// @cond
namespace detail {

inline constexpr char32_t kNoCharacter = 0xFFFFFFFF;
inline constexpr char32_t kReplacement = 0xFFFD;

constexpr bool IsPlain(char c) { return c >= ' ' && c <= '~' && c != '\\'; }
constexpr bool IsCharacter(char32_t c) { return c < 0xD800 || (c > 0xDFFF && c <= 0x10FFFF); }
constexpr char HexDigit(char32_t value) { return "0123456789ABCDEF"[value & 15]; }
constexpr int HexValue(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return -1;
}

// Removes the first character of a text, which must not be empty, and returns it. Returns kNoCharacter for bytes that
// are not UTF-8: an overlong form, a surrogate, a character cut off. It then removes as many as can begin a character.
inline char32_t TakeUtf8(std::string_view& text) {
  const auto byte = [&text](std::size_t at) { return static_cast<unsigned char>(text[at]); };
  const unsigned lead = byte(0);
  const unsigned length = lead < 0x80 ? 1 : lead < 0xC2 || lead > 0xF4 ? 0 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  if (length < 2) {
    text.remove_prefix(1);
    return length == 1 ? lead : kNoCharacter;
  }
  char32_t c = lead & (0x7FU >> length);
  unsigned lowest = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;  // of the second byte
  unsigned highest = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
  unsigned at = 1;
  for (; at < length && at < text.size() && byte(at) >= lowest && byte(at) <= highest; ++at) {
    c = c << 6 | (byte(at) & 0x3F);
    lowest = 0x80;
    highest = 0xBF;
  }
  text.remove_prefix(at);
  return at == length ? c : kNoCharacter;
}

// Prints a character as UTF-8. Returns the number of bytes.
inline std::size_t PrintUtf8(char32_t c, char (&bytes)[4]) {
  constexpr unsigned kLead[] = {0, 0, 0xC0, 0xE0, 0xF0};
  const std::size_t length = c < 0x80 ? 1 : c < 0x800 ? 2 : c < 0x10000 ? 3 : 4;
  for (std::size_t at = length - 1; at > 0; --at) {
    bytes[at] = static_cast<char>(0x80 | (c & 0x3F));
    c >>= 6;
  }
  bytes[0] = static_cast<char>(kLead[length] | c);
  return length;
}

template <class Sink>
class TextEncoder {
 public:
  TextEncoder(std::string_view rest, Sink& sink) : rest_(rest), sink_(sink) {}

  TextFaults Run() {
    while (!rest_.empty()) {
      std::size_t plain = 0;
      while (plain < rest_.size() && IsPlain(rest_[plain])) ++plain;
      if (plain > 0) {
        Open(0);
        sink_(rest_.substr(0, plain));
        rest_.remove_prefix(plain);
      } else {
        Put(TakeUtf8(rest_));
      }
    }
    Open(0);
    return faults_;
  }

 private:
  // Adjacent characters of one width share a directive. A byte alone is shorter as \X\hh.
  void Put(char32_t c) {
    if (c == kNoCharacter) {
      ++faults_.replaced;
      c = kReplacement;
    }
    if (c == '\\') {
      Open(0);
      sink_(std::string_view("\\\\"));
      return;
    }
    if (c <= 0xFF && open_ != 4) {
      Open(0);
      sink_(std::string_view("\\X\\"));
      return PutDigits(c, 2);
    }
    Open(c <= 0xFFFF ? 4 : 8);
    PutDigits(c, open_);
  }
  // Ends the open directive and begins one with that many digits for each character; 0 begins none.
  void Open(unsigned width) {
    if (open_ == width) return;
    if (open_ != 0) sink_(std::string_view("\\X0\\"));
    if (width != 0) sink_(std::string_view(width == 4 ? "\\X2\\" : "\\X4\\"));
    open_ = width;
  }
  void PutDigits(char32_t c, unsigned width) {
    char digits[8];
    for (unsigned at = width; at-- > 0; c >>= 4) digits[at] = HexDigit(c);
    sink_(std::string_view(digits, width));
  }

  std::string_view rest_;
  Sink& sink_;
  unsigned open_ = 0;  // digits for each character in the directive that is open; 0: none is
  TextFaults faults_;
};

template <class Sink>
class TextDecoder {
 public:
  TextDecoder(std::string_view rest, Sink& sink) : rest_(rest), sink_(sink) {}

  TextFaults Run() {
    while (!rest_.empty()) {
      std::size_t same = 0;
      while (same < rest_.size() && static_cast<unsigned char>(rest_[same]) < 0x80 && rest_[same] != '\\') ++same;
      if (same > 0) {
        Keep(same);
      } else if (rest_[0] == '\\') {
        Directive();
      } else {
        Put(TakeUtf8(rest_));
      }
    }
    return faults_;
  }

 private:
  bool Begins(std::string_view with) const { return rest_.substr(0, with.size()) == with; }

  void Directive() {
    if (Begins("\\\\")) return PutFor('\\', 2);
    if (Begins("\\X2\\")) return Extended(4);
    if (Begins("\\X4\\")) return Extended(8);
    if (Begins("\\X\\")) {
      if (DigitsFrom(3) < 5) return Malformed(3);
      return PutFor(Number(3, 2), 5);
    }
    if (Begins("\\S\\")) {
      if (rest_.size() < 4 || rest_[3] < ' ' || rest_[3] > '~') return Malformed(3);
      const char32_t c = InAlphabet(alphabet_, rest_[3]);
      return PutFor(c != 0 ? c : kNoCharacter, 4);
    }
    if (Begins("\\P") && rest_.size() > 3 && rest_[2] >= 'A' && rest_[2] <= 'Z' && rest_[3] == '\\') {
      if (rest_[2] > 'I') return Malformed(4);
      alphabet_ = rest_[2];
      return rest_.remove_prefix(4);
    }
    Malformed(Begins("\\X0\\") ? 4 : 1);
  }
  void Extended(std::size_t width) {
    const std::size_t end = DigitsFrom(4);
    const bool isEnded = rest_.substr(end, 4) == "\\X0\\";
    if (!isEnded || end == 4 || (end - 4) % width != 0) return Malformed(isEnded ? end + 4 : end);
    for (std::size_t at = 4; at < end; at += width) PutFor(Number(at, width), 0);
    rest_.remove_prefix(end + 4);
  }
  // Where the digits from that place on end.
  std::size_t DigitsFrom(std::size_t at) const {
    while (at < rest_.size() && HexValue(rest_[at]) >= 0) ++at;
    return at;
  }
  char32_t Number(std::size_t at, std::size_t width) const {
    char32_t number = 0;
    for (const std::size_t end = at + width; at < end; ++at) {
      number = number << 4 | static_cast<char32_t>(HexValue(rest_[at]));
    }
    return number;
  }
  // Puts the character that the next `length` bytes stand for.
  void PutFor(char32_t c, std::size_t length) {
    rest_.remove_prefix(length);
    Put(c);
  }
  void Put(char32_t c) {
    if (!IsCharacter(c)) {
      ++faults_.replaced;
      c = kReplacement;
    }
    char bytes[4];
    sink_(std::string_view(bytes, PrintUtf8(c, bytes)));
  }
  void Malformed(std::size_t length) {
    ++faults_.malformed;
    Keep(length);
  }
  void Keep(std::size_t length) {
    sink_(rest_.substr(0, length));
    rest_.remove_prefix(length);
  }

  std::string_view rest_;
  Sink& sink_;
  char alphabet_ = 'A';
  TextFaults faults_;
};

}  // namespace detail
/// @endcond

/// Encodes UTF-8. Blank to `~` are unchanged, but `\` becomes `\\`. A character beyond U+00FF is written in `\X2\`, one
/// beyond U+FFFF in `\X4\`; adjacent ones share the directive. Any other character is written as `\X\hh`, or in the
/// `\X2\` that is open. Hexadecimal digits are upper-case.
///
/// Bytes that are not UTF-8 become U+FFFD, one for each sequence that could have begun a character. The result has at
/// most twelve bytes for each byte of the text. A read keeps 256 of them.
///
///   utf8  the text, not encoded: a directive in it is encoded as the characters that it consists of
///   sink  is called with each piece of the result, a std::string_view that is valid during the call
///
/// Returns how often U+FFFD was written in place of something else.
template <class Sink>
TextFaults EncodeTo(std::string_view utf8, Sink&& sink) {
  return detail::TextEncoder<Sink>(utf8, sink).Run();
}

/// EncodeTo a string. `faults` receives its result, unless it is null.
inline std::string EncodeText(std::string_view utf8, TextFaults* faults = nullptr) {
  std::string out;
  const TextFaults found = EncodeTo(utf8, [&out](std::string_view piece) { out += piece; });
  if (faults) *faults = found;
  return out;
}

/// Decodes a text to UTF-8. The result is always valid UTF-8.
///
/// Hexadecimal digits may be lower-case. A directive that is malformed or not ended is unchanged, and so is a backslash
/// that begins none. A well-formed directive that names no character becomes U+FFFD: a surrogate (also one of a pair),
/// a code above U+10FFFF, a byte that the alphabet does not assign. UTF-8 outside of directives is unchanged. Other
/// bytes beyond ASCII become U+FFFD.
///
///   text  the encoded text, with single apostrophes
///   sink  is called with each piece of the result, a std::string_view that is valid during the call
///
/// Returns what was malformed or replaced.
template <class Sink>
TextFaults DecodeTo(std::string_view text, Sink&& sink) {
  return detail::TextDecoder<Sink>(text, sink).Run();
}

/// DecodeTo a string. `faults` receives its result, unless it is null.
inline std::string DecodeText(std::string_view text, TextFaults* faults = nullptr) {
  std::string out;
  const TextFaults found = DecodeTo(text, [&out](std::string_view piece) { out += piece; });
  if (faults) *faults = found;
  return out;
}

}  // namespace steprt

#endif
