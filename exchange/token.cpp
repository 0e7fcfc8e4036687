#include "token.h"

#include <limits>

#include "char_class.h"

namespace exchange {

namespace {

constexpr std::string_view kKindNames[] = {
    "the end of the file",
    "a keyword",
    "a user-defined keyword",
    "an integer",
    "a real",
    "a text",
    "a binary",
    "an enumerator",
    "a reference",
    "the name of a value",
    "the name of a constant",
    "a resource",
    "'$'",
    "'*'",
    "'('",
    "')'",
    "','",
    "';'",
    "'='",
    "another character",
};

bool Continues(TokenKind kind, char c) {
  switch (kind) {
    case TokenKind::kKeyword:
    case TokenKind::kUserKeyword:
      return Is(c, kWordChar) || c == '-';
    case TokenKind::kEnumerator:
      return Is(c, kWordChar) || c == '.';
    case TokenKind::kInteger:
    case TokenKind::kReal:
      return Is(c, kDigitChar) || c == '.' || c == 'E' || c == 'e' || c == '+' || c == '-';
    case TokenKind::kReference:
      return Is(c, kDigitChar);
    default:
      return false;
  }
}

}  // namespace

std::string_view Spelling(std::string_view bytes, Token token) {
  const std::size_t from = token.Offset();
  if (from >= bytes.size()) return {};
  std::size_t to = from + 1;
  while (to < bytes.size() && Continues(token.Kind(), bytes[to])) ++to;
  return bytes.substr(from, to - from);
}

std::uint64_t InstanceName(std::string_view bytes, Token token, bool& fits) {
  constexpr std::uint64_t kMost = std::numeric_limits<std::uint64_t>::max();
  std::uint64_t name = 0;
  // A NUL or another byte that is no digit follows.
  for (const char* p = bytes.data() + token.Offset() + 1; Is(*p, kDigitChar); ++p) {
    const auto digit = static_cast<std::uint64_t>(*p - '0');
    if (name > (kMost - digit) / 10) {
      fits = false;
      return kMost;
    }
    name = name * 10 + digit;
  }
  return name;
}

std::string_view KindName(TokenKind kind) { return kKindNames[static_cast<std::size_t>(kind)]; }

}  // namespace exchange
