// Runs a tokeniser over bytes and prints what it gives, so that two of them can be compared.
#ifndef STEPRT_TESTS_READ_TOKEN_RUN_H
#define STEPRT_TESTS_READ_TOKEN_RUN_H

#include <charconv>
#include <memory>
#include <string>

#include "read/tokeniser.h"
#include "read/transfer.h"
#include "support/reports.h"
#include "support/temp_files.h"

namespace steprt_test {

struct TokenRun {
  std::string tokens;  // "NAME A|(|INT 5|)", up to the end of the file
  Texts reports;
  int line;  // at the end

  bool operator==(const TokenRun&) const = default;
};

inline std::string TokenText(int kind, int integer, double real, const char* text) {
  char digits[32];
  switch (kind) {
    case TOK_ERROR:
      return "ERROR";
    case TOK_REF:
      return "REF " + std::to_string(integer);
    case TOK_INT:
      return "INT " + std::to_string(integer);
    case TOK_REAL:
      return "REAL " + std::string(digits, std::to_chars(digits, digits + sizeof digits, real).ptr);
    case TOK_TEXT:
      return std::string("TEXT ") + text;
    case TOK_NAME:
      return std::string("NAME ") + text;
    case TOK_ENUM:
      return std::string("ENUM ") + text;
    case TOK_NULL:
      return "NULL";
    default:
      return std::string(1, "=(),;"[kind - TOK_EQUAL]);
  }
}

inline TokenRun RunTokeniser(const std::string& path) {
  const steprt::TransferOwner t = steprt::NewTransfer(path.c_str(), CollectReport, nullptr, false);
  const std::unique_ptr<steprt::InputFile> file(steprt::InputFile::OpenOrNull(path.c_str()));
  t->file.in = file.get();
  std::string tokens;
  while (true) {
    const int kind = steprt::NextToken(t.get());
    if (kind == TOK_EOF) break;
    const bool hasText = kind == TOK_TEXT || kind == TOK_NAME || kind == TOK_ENUM;
    tokens += tokens.empty() ? "" : "|";
    tokens += TokenText(kind, t->value.integer, t->value.real, hasText ? t->value.text : nullptr);
  }
  return {tokens, TakeReports(path), t->line};
}

}  // namespace steprt_test

#endif
