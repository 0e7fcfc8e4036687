#include "token.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <unordered_map>

namespace express {

namespace {

constexpr std::string_view kTexts[] = {"the end of the file",
                                       "a name",
                                       "an integer",
                                       "a real number",
                                       "a string",
                                       "an encoded string",
                                       "a binary literal",
                                       "'.'",
                                       "','",
                                       "';'",
                                       "':'",
                                       "'*'",
                                       "'+'",
                                       "'-'",
                                       "'='",
                                       "'\\'",
                                       "'/'",
                                       "'<'",
                                       "'>'",
                                       "'['",
                                       "']'",
                                       "'{'",
                                       "'}'",
                                       "'|'",
                                       "'('",
                                       "')'",
                                       "'<='",
                                       "'<>'",
                                       "'>='",
                                       "'<*'",
                                       "':='",
                                       "'||'",
                                       "'**'",
                                       "':=:'",
                                       "':<>:'",
                                       "'?'",
                                       "AND",
                                       "ANDOR",
                                       "DIV",
                                       "IN",
                                       "LIKE",
                                       "MOD",
                                       "NOT",
                                       "OR",
                                       "QUERY",
                                       "SELF",
                                       "XOR",
                                       "ABSTRACT",
                                       "AGGREGATE",
                                       "ALIAS",
                                       "ARRAY",
                                       "AS",
                                       "BAG",
                                       "BEGIN",
                                       "BINARY",
                                       "BOOLEAN",
                                       "BY",
                                       "CASE",
                                       "CONSTANT",
                                       "DERIVE",
                                       "ELSE",
                                       "END",
                                       "END_ALIAS",
                                       "END_CASE",
                                       "END_CONSTANT",
                                       "END_ENTITY",
                                       "END_FUNCTION",
                                       "END_IF",
                                       "END_LOCAL",
                                       "END_PROCEDURE",
                                       "END_REPEAT",
                                       "END_RULE",
                                       "END_SCHEMA",
                                       "END_TYPE",
                                       "ENTITY",
                                       "ENUMERATION",
                                       "ESCAPE",
                                       "FIXED",
                                       "FOR",
                                       "FROM",
                                       "FUNCTION",
                                       "GENERIC",
                                       "IF",
                                       "INTEGER",
                                       "INVERSE",
                                       "LIST",
                                       "LOCAL",
                                       "LOGICAL",
                                       "NUMBER",
                                       "OF",
                                       "ONEOF",
                                       "OPTIONAL",
                                       "OTHERWISE",
                                       "PROCEDURE",
                                       "REAL",
                                       "REFERENCE",
                                       "REPEAT",
                                       "RETURN",
                                       "RULE",
                                       "SCHEMA",
                                       "SELECT",
                                       "SET",
                                       "SKIP",
                                       "STRING",
                                       "SUBTYPE",
                                       "SUPERTYPE",
                                       "THEN",
                                       "TO",
                                       "TYPE",
                                       "UNIQUE",
                                       "UNTIL",
                                       "USE",
                                       "VAR",
                                       "WHERE",
                                       "WHILE",
                                       "BASED_ON",
                                       "END_SUBTYPE_CONSTRAINT",
                                       "EXTENSIBLE",
                                       "GENERIC_ENTITY",
                                       "RENAMED",
                                       "SUBTYPE_CONSTRAINT",
                                       "TOTAL_OVER",
                                       "WITH"};

constexpr std::size_t Index(TokenKind kind) { return static_cast<std::size_t>(kind); }
static_assert(std::size(kTexts) == Index(TokenKind::kWith) + 1);
static_assert(kTexts[Index(TokenKind::kXor)] == "XOR" && kTexts[Index(TokenKind::kWhile)] == "WHILE");

constexpr std::size_t kLongestWord = 22;  // END_SUBTYPE_CONSTRAINT

std::unordered_map<std::string_view, TokenKind> MakeWords() {
  std::unordered_map<std::string_view, TokenKind> words;
  for (std::size_t i = Index(TokenKind::kAnd); i < std::size(kTexts); ++i) {
    words.emplace(kTexts[i], static_cast<TokenKind>(i));
  }
  return words;
}

}  // namespace

std::string_view Describe(TokenKind kind) { return kTexts[Index(kind)]; }

TokenKind WordKind(std::string_view word) {
  static const std::unordered_map<std::string_view, TokenKind> words = MakeWords();
  if (word.size() > kLongestWord) return TokenKind::kIdentifier;
  std::array<char, kLongestWord> upper{};
  std::transform(word.begin(), word.end(), upper.begin(),
                 [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
  const auto found = words.find({upper.data(), word.size()});
  return found == words.end() ? TokenKind::kIdentifier : found->second;
}

}  // namespace express
