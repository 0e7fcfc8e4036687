// The tokens of ISO 10303-21. Comments, print control directives and blanks are between tokens and are not tokens.
#ifndef STEPRT_EXCHANGE_TOKEN_H
#define STEPRT_EXCHANGE_TOKEN_H

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace exchange {

enum class TokenKind : std::uint8_t {
  kEnd,          // of the bytes
  kKeyword,      // CARTESIAN_POINT, ISO-10303-21
  kUserKeyword,  // !VENDOR_POINT
  kInteger,
  kReal,
  kText,        // 'it''s'
  kBinary,      // "0FF"
  kEnumerator,  // .STEEL.
  kReference,   // #12
  kValueName,   // @12, an edition 3 name of a value
  kConstant,    // #STEEL or @STEEL, an edition 3 name of a constant
  kResource,    // <file.stp#anchor>, edition 3
  kOmitted,     // $
  kDerived,     // *
  kOpen,        // (
  kClose,       // )
  kComma,
  kSemicolon,
  kEqual,
  kSlash,  // edition 1, after ENDSCOPE
  kBad,    // no token; it is reported
};

// Its kind and where it starts. Where it ends follows from its bytes, see Spelling.
class Token {
 public:
  Token() = default;
  Token(TokenKind kind, std::size_t offset) : packed_(static_cast<std::uint64_t>(offset) << kShift | Bits(kind)) {}

  TokenKind Kind() const { return static_cast<TokenKind>(packed_ & kMask); }
  std::size_t Offset() const { return static_cast<std::size_t>(packed_ >> kShift); }
  bool Is(TokenKind kind) const { return Kind() == kind; }

 private:
  static constexpr int kShift = 8;  // so an offset has 56 bits
  static constexpr std::uint64_t kMask = 0xFF;
  static std::uint64_t Bits(TokenKind kind) { return static_cast<std::uint64_t>(kind); }

  std::uint64_t packed_ = 0;
};

// In these two a NUL that does not count follows the bytes, as in Scanner.

// The bytes of a keyword, number or enumerator; of any other token its first character.
std::string_view Spelling(std::string_view bytes, Token token);

// The number of an instance name. Beyond 64 bits the result is the largest number, and `fits` becomes false.
std::uint64_t InstanceName(std::string_view bytes, Token token, bool& fits);
inline std::uint64_t InstanceName(std::string_view bytes, Token token) {
  bool fits = true;
  return InstanceName(bytes, token, fits);
}

// What a report calls it: "an integer", "')'".
std::string_view KindName(TokenKind kind);

}  // namespace exchange

#endif
