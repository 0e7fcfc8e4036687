// From tokens to sections and records.
#ifndef STEPRT_EXCHANGE_PARSER_H
#define STEPRT_EXCHANGE_PARSER_H

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "record.h"
#include "reports.h"
#include "scanner.h"

namespace exchange {

// Reads a file of ISO 10303-21, editions 1 to 3, to its end. A fault is reported, and reading goes on with the next
// statement. Memory is that of the longest record.
class Parser {
 public:
  Parser(std::string_view bytes, Reports& reports, Sink& sink);
  void Run();

 private:
  enum class Bracket : std::uint8_t { kParameters, kList, kTyped };

  void SkipByteOrderMark();
  void ParseStart();
  void ParseSections();
  // False at the end of the file.
  bool ParseSection(Token token);
  void ParseHeader();
  void ParseHeaderEntity(Token token);
  void SetEdition();
  void ParseData();
  void ParseRecords();
  void ParseDataParameters();
  void ParseOther(bool names);
  void ParseOtherStatement(bool names, Token first);
  void ParseSignature();
  // True if the token starts a section, or ends the file: ENDSEC is missing then.
  bool LacksEndOfSection(Token token, std::string_view section);

  // parse_record.cpp
  void ParseRecord(Token name);
  void SetName(Token name);
  void EndRecord(bool complete);
  bool ParseInstance();
  bool ParseComplex();
  bool ParseParameters();
  bool ParseValue(bool mayClose);
  bool CloseBrackets();
  bool OpenTyped();
  bool Take(TokenKind kind);
  bool Expected(std::string_view what);
  void Recover();
  bool MayGoBack(std::size_t to);
  std::size_t FaultOffset() const;

  // parse_scope.cpp
  void OpenScope();
  void CloseScope();
  bool ParseExports();
  void LeaveScopes();

  Token Begin();
  bool IsWord(Token token, std::string_view word) const;
  void TakeSemicolon();
  void Progress();

  Scanner scanner_;
  Reports& reports_;
  Sink& sink_;
  Record record_;
  std::vector<Bracket> brackets_;  // those that are open
  std::vector<Token> scopes_;      // the names of the records whose scopes are open
  Token token_;                    // the last one
  std::size_t nextProgress_ = 0;
  std::size_t readAgain_ = 0;  // bytes
  bool sawHeader_ = false;
  bool sawData_ = false;
  bool sawEnd_ = false;
};

}  // namespace exchange

#endif
