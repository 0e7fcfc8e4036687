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
    "'/'",
    "another character",
};

// The end of a run of bytes that are in the set or are one of the others.
const char* EndOfRun(const char* p, int set, std::string_view others) {
  while (Is(*p, set) || others.find(*p) != std::string_view::npos) ++p;
  return p;
}

const char* EndOfToken(TokenKind kind, const char* from) {
  const char* const second = from + 1;
  switch (kind) {
    case TokenKind::kKeyword:
    case TokenKind::kUserKeyword:
      return EndOfRun(second, kWordChar, "-");
    case TokenKind::kEnumerator:
      return EndOfRun(second, kWordChar, ".");
    case TokenKind::kInteger:
    case TokenKind::kReal:
      return EndOfRun(second, kDigitChar, ".Ee+-");
    case TokenKind::kReference:
      return EndOfRun(second, kDigitChar, "");
    default:
      return second;
  }
}

}  // namespace

std::string_view Spelling(std::string_view bytes, Token token) {
  const std::size_t from = token.Offset();
  if (from >= bytes.size()) return {};
  // A NUL or another byte that continues no token follows.
  const char* const first = bytes.data() + from;
  return {first, static_cast<std::size_t>(EndOfToken(token.Kind(), first) - first)};
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
