// Tokens, and what lies between them.
#include <gtest/gtest.h>

#include "express/lexer.h"
#include "loading.h"

namespace {

using namespace express;
using express_test::LoadTexts;

// Kinds and texts of all tokens, each as kind=text; the end is left out.
std::string Tokens(const Source& source, Diagnostics& diagnostics) {
  std::string text;
  for (const Token& token : Tokenise(source, diagnostics)) {
    if (token.kind == TokenKind::kEnd) break;
    if (!text.empty()) text += " ";
    const std::string_view spelled = source.Text().substr(token.offset, token.length);
    text += std::string(Describe(token.kind)) + "=" + std::string(spelled);
  }
  return text;
}

TEST(Tokens, EveryFormIsRead) {
  const struct {
    const char* text;
    const char* tokens;
  } rows[] = {
      {"", ""},
      {" \t\r\n\v\f", ""},
      {"\xEF\xBB\xBFx", "a name=x"},
      {"End_Type entity Entity1 e_1 _", "END_TYPE=End_Type ENTITY=entity a name=Entity1 a name=e_1"},
      {"end_subtype_constraint end_subtype_constraints",
       "END_SUBTYPE_CONSTRAINT=end_subtype_constraint a name=end_subtype_constraints"},
      {"sizeof SELF", "a name=sizeof SELF=SELF"},
      {"0 12 1. 1.5 1.E3 1.5e-3 2E+4 1e x",
       "an integer=0 an integer=12 a real number=1. a real number=1.5 a real "
       "number=1.E3 a real number=1.5e-3 a real number=2E+4 an integer=1 a "
       "name=e a name=x"},
      {"1..2", "a real number=1. '.'=. an integer=2"},
      {"'' 'a''b' '(* --' ''''", "a string='' a string='a''b' a string='(* --' a string=''''"},
      {"\"0000004A\" \"\"", "an encoded string=\"0000004A\" an encoded string=\"\""},
      {"%0 %0110", "a binary literal=%0 a binary literal=%0110"},
      {":=: :<>: := : <= <* <> < >= > || | ** * =",
       "':=:'=:=: ':<>:'=:<>: ':='=:= ':'=: '<='=<= '<*'=<* '<>'=<> '<'=< "
       "'>='=>= '>'=> '||'=|| '|'=| '**'=** '*'=* '='=="},
      {"()[]{}.,;+-/\\?", "'('=( ')'=) '['=[ ']'=] '{'={ '}'=} '.'=. ','=, ';'=; '+'=+ '-'=- '/'=/ '\\'=\\ '?'=?"},
      {"a--b\nc--", "a name=a a name=c"},
      {"a--b\rc--d\r\ne", "a name=a a name=c a name=e"},
      {"a(*b*)c(**)d(***)e", "a name=a a name=c a name=d a name=e"},
      {"a(*(*b*)c(*d(*e*)*)*)f", "a name=a a name=f"},
      {"a(*--*)b(*'*)c", "a name=a a name=b a name=c"},
      {"a--(*\nb", "a name=a a name=b"},
  };
  for (const auto& row : rows) {
    const Source source("x", row.text);
    Diagnostics diagnostics;
    EXPECT_EQ(Tokens(source, diagnostics), row.tokens) << row.text;
    EXPECT_EQ(diagnostics.Errors(), std::string_view(row.text).ends_with("_") ? 1U : 0U) << row.text;
  }
}

TEST(Tokens, WhatIsNoTokenIsReportedAndPassedOver) {
  const struct {
    const char* text;
    const char* tokens;
    const char* message;
  } rows[] = {
      {"a $ b", "a name=a a name=b", "1:3 expected a token: no token starts with this character [bad-character]\n"},
      {"a $#_!b", "a name=a a name=b", "1:3 expected a token: no token starts with this character [bad-character]\n"},
      {"\xC3\xA4\xC3\xB6;", "';'=;", "1:1 expected a token: no token starts with this character [bad-character]\n"},
      {"a\n  'b\nc", "a name=a a string='b a name=c",
       "2:3 this string does not end on its line: expected \"'\" [open-text]\n"},
      {"'b''\rc", "a string='b'' a name=c", "1:1 this string does not end on its line: expected \"'\" [open-text]\n"},
      {"\"00", "an encoded string=\"00",
       "1:1 this encoded string does not end on its line: expected '\"' [open-text]\n"},
      {"\"0000\" a", "an encoded string=\"0000\" a name=a",
       "1:2 expected eight hexadecimal digits for each character of an encoded string [bad-literal]\n"},
      {"\"0000G041\"", "an encoded string=\"0000G041\"",
       "1:6 expected a hexadecimal digit in an encoded string [bad-literal]\n"},
      {"%2 a", "a binary literal=%2 a name=a", "1:2 expected 0 or 1 in a binary literal [bad-literal]\n"},
      {"%", "a binary literal=%", "1:2 expected 0 or 1 in a binary literal [bad-literal]\n"},
      {"%01x2", "a binary literal=%01x2", "1:4 expected 0 or 1 in a binary literal [bad-literal]\n"},
      {"a (* b (* c *)", "a name=a", "1:3 this remark has no end: expected '*)' [open-remark]\n"},
      {"(*)", "", "1:1 this remark has no end: expected '*)' [open-remark]\n"},
  };
  for (const auto& row : rows) {
    express_test::Loaded loaded{Diagnostics(), std::make_unique<Model>()};
    const Source source("x", row.text);
    EXPECT_EQ(Tokens(source, loaded.diagnostics), row.tokens) << row.text;
    EXPECT_EQ(loaded.Messages(), row.message) << row.text;
  }
}

TEST(Tokens, ATextBeyondTheLimitIsNotRead) {
  Limits limits;
  limits.textBytes = 26;
  EXPECT_EQ(LoadTexts({"SCHEMA s;     END_SCHEMA;"}, limits).Messages(), "");
  const std::string messages = LoadTexts({"SCHEMA s;       END_SCHEMA;"}, limits).Messages();
  EXPECT_EQ(messages, "1:1 this text is longer than 26 bytes and is not read [long-text]\n");
}

}  // namespace
