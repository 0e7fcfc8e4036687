#include "parser.h"

#include <string>

#include "char_class.h"

namespace exchange {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kFirst = "ISO-10303-21";
constexpr std::string_view kLast = "END-ISO-10303-21";
constexpr std::string_view kEndSection = "ENDSEC";
constexpr std::size_t kProgressStep = 1 << 20;

}  // namespace

Parser::Parser(std::string_view bytes, Reports& reports, Sink& sink)
    : scanner_(bytes, reports), reports_(reports), sink_(sink) {
  record_.bytes = bytes;
}

void Parser::Run() {
  SkipByteOrderMark();
  ParseStart();
  ParseSections();
  const std::size_t end = record_.bytes.size();
  if (!sawData_ && !sawEnd_) reports_.Add(Code::kMissingPart, end, [] { return "expected a DATA section"; });
  if (!sawEnd_) {
    reports_.Add(Code::kMissingPart, end, [] { return "expected END-ISO-10303-21; before the end of the file"; });
  }
  sink_.OnProgress(end);
}

void Parser::SkipByteOrderMark() {
  if (!record_.bytes.starts_with(kByteOrderMark)) return;
  reports_.Add(Code::kByteOrderMark, 0, [] { return "expected ISO-10303-21; first, found a byte order mark"; });
  scanner_.Seek(kByteOrderMark.size());
}

// The first token of a statement.
Token Parser::Begin() {
  scanner_.Restart();
  token_ = scanner_.Next();
  record_.tokens.clear();
  record_.offset = token_.Offset();
  record_.complex = record_.hasName = false;
  record_.sound = true;
  return token_;
}

bool Parser::IsWord(Token token, std::string_view word) const {
  return token.Is(TokenKind::kKeyword) && Spelling(record_.bytes, token) == word;
}

// Whatever else is there stays.
void Parser::TakeSemicolon() {
  if (!Take(TokenKind::kSemicolon)) scanner_.Unread(token_);
}

void Parser::Progress() {
  if (scanner_.Offset() < nextProgress_) return;
  nextProgress_ = scanner_.Offset() + kProgressStep;
  sink_.OnProgress(scanner_.Offset());
}

void Parser::ParseStart() {
  const Token token = Begin();
  if (IsWord(token, kFirst)) return TakeSemicolon();
  reports_.Add(Code::kMissingPart, token.Offset(), [] { return "expected ISO-10303-21; at the start of the file"; });
  scanner_.Unread(token);
}

void Parser::ParseSections() {
  for (;;) {
    const Token token = Begin();
    if (sawEnd_ && !token.Is(TokenKind::kEnd) && !IsWord(token, "SIGNATURE")) {
      return reports_.Add(Code::kAfterEnd, token.Offset(), [] { return "expected nothing after END-ISO-10303-21;"; });
    }
    if (!ParseSection(token)) return;
  }
}

bool Parser::ParseSection(Token token) {
  if (token.Is(TokenKind::kEnd)) return false;
  if (token.Is(TokenKind::kReference)) {
    reports_.Add(Code::kMissingPart, token.Offset(), [] { return "expected DATA; before the first record"; });
    scanner_.Unread(token);
    ParseData();
  } else if (IsWord(token, "HEADER")) {
    ParseHeader();
  } else if (IsWord(token, "DATA")) {
    ParseDataParameters();
    ParseData();
  } else if (IsWord(token, "ANCHOR") || IsWord(token, "REFERENCE")) {
    TakeSemicolon();
    scanner_.AllowTags(IsWord(token, "ANCHOR"));
    ParseOther(IsWord(token, "REFERENCE"));
    scanner_.AllowTags(false);
  } else if (IsWord(token, "SIGNATURE")) {
    ParseSignature();
  } else if (IsWord(token, kLast)) {
    sawEnd_ = true;
    TakeSemicolon();
  } else {
    Expected("HEADER, DATA or another section");
    Recover();
  }
  return true;
}

bool Parser::LacksEndOfSection(Token token, std::string_view section) {
  const bool next = IsWord(token, "DATA") || IsWord(token, "HEADER") || IsWord(token, kLast);
  const bool record = token.Is(TokenKind::kReference) && section == "HEADER";
  if (!next && !record && !token.Is(TokenKind::kEnd)) return false;
  reports_.Add(Code::kMissingPart, token.Offset(),
               [&] { return "expected ENDSEC; at the end of the section " + std::string(section); });
  scanner_.Unread(token);
  return true;
}

void Parser::ParseHeader() {
  if (sawHeader_ || sawData_) {
    reports_.Add(Code::kMissingPart, record_.offset, [] { return "expected one HEADER section, before all others"; });
  }
  sawHeader_ = true;
  TakeSemicolon();
  for (;;) {
    const Token token = Begin();
    if (IsWord(token, kEndSection)) return TakeSemicolon();
    if (LacksEndOfSection(token, "HEADER")) return;
    ParseHeaderEntity(token);
  }
}

// keyword parameters ";"
void Parser::ParseHeaderEntity(Token token) {
  const bool keyword = token.Is(TokenKind::kKeyword) || token.Is(TokenKind::kUserKeyword);
  record_.tokens.push_back(token);
  const bool complete = (keyword || Expected("a keyword")) && ParseParameters() && Take(TokenKind::kSemicolon);
  if (!complete) return Recover();
  record_.sound = !scanner_.Faulty();
  if (!record_.sound) return;
  if (IsWord(token, "FILE_DESCRIPTION")) SetEdition();
  sink_.OnHeader(record_);
}

// Edition 3 has the implementation level 4, the last text of FILE_DESCRIPTION.
void Parser::SetEdition() {
  const std::size_t count = record_.tokens.size();
  if (count < 2) return;
  scanner_.AllowUtf8(record_.bytes.substr(record_.tokens[count - 2].Offset()).starts_with("'4;"));
}

// "DATA" [parameters] ";"
void Parser::ParseDataParameters() {
  const Token token = scanner_.Next();
  scanner_.Unread(token);
  if (token.Is(TokenKind::kOpen) && !ParseParameters()) return Recover();
  TakeSemicolon();
}

void Parser::ParseData() {
  ParseRecords();
  LeaveScopes();
}

void Parser::ParseRecords() {
  if (!sawHeader_ && !sawData_) {
    reports_.Add(Code::kMissingPart, record_.offset, [] { return "expected a HEADER section before DATA"; });
  }
  sawData_ = true;
  for (;;) {
    const Token token = Begin();
    if (token.Is(TokenKind::kReference) || token.Is(TokenKind::kConstant)) {
      ParseRecord(token);
      continue;
    }
    if (IsWord(token, kEndSection)) return TakeSemicolon();
    if (LacksEndOfSection(token, "DATA")) return;
    if (!scopes_.empty() && IsWord(token, "ENDSCOPE")) {
      CloseScope();
      continue;
    }
    Expected("a record or ENDSEC");
    Recover();
  }
}

// The statements of ANCHOR and REFERENCE are passed over, but for references and names.
void Parser::ParseOther(bool names) {
  for (;;) {
    const Token token = Begin();
    if (IsWord(token, kEndSection)) return TakeSemicolon();
    if (LacksEndOfSection(token, names ? "REFERENCE" : "ANCHOR")) return;
    ParseOtherStatement(names, token);
  }
}

void Parser::ParseOtherStatement(bool names, Token first) {
  record_.hasName = names && first.Is(TokenKind::kReference);
  if (record_.hasName) record_.name = InstanceName(record_.bytes, first);
  if (!Take(TokenKind::kEqual)) return Recover();
  while (!token_.Is(TokenKind::kSemicolon) && !token_.Is(TokenKind::kEnd)) {
    if (token_.Is(TokenKind::kReference)) record_.tokens.push_back(token_);
    token_ = scanner_.Next();
  }
  if (scanner_.HasOpenText() && token_.Is(TokenKind::kEnd)) Recover();
  sink_.OnOther(record_);
}

// Its content is no token.
void Parser::ParseSignature() {
  const std::size_t at = record_.bytes.find(kEndSection, scanner_.Offset());
  scanner_.Seek(at == std::string_view::npos ? record_.bytes.size() : at);
  const Token token = scanner_.Next();
  if (IsWord(token, kEndSection)) return TakeSemicolon();
  LacksEndOfSection(token, "SIGNATURE");
}

}  // namespace exchange
