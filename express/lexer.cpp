#include "lexer.h"

#include <array>
#include <string>

namespace express {

namespace {

constexpr bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }
constexpr bool IsHexDigit(char c) { return IsDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F'); }
constexpr bool IsWordPart(char c) { return IsLetter(c) || IsDigit(c) || c == '_'; }
constexpr bool IsBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
constexpr bool EndsLine(char c) { return c == '\n' || c == '\r'; }

struct Symbol {
  std::string_view text;
  TokenKind kind;
};

// Longer symbols first, so that the first match is the longest.
constexpr std::array kSymbols = {
    Symbol{":<>:", TokenKind::kInstanceNotEqual},
    Symbol{":=:", TokenKind::kInstanceEqual},
    Symbol{"<=", TokenKind::kLessEqual},
    Symbol{"<>", TokenKind::kNotEqual},
    Symbol{">=", TokenKind::kGreaterEqual},
    Symbol{"<*", TokenKind::kLessStar},
    Symbol{":=", TokenKind::kAssign},
    Symbol{"||", TokenKind::kBarBar},
    Symbol{"**", TokenKind::kStarStar},
    Symbol{".", TokenKind::kDot},
    Symbol{",", TokenKind::kComma},
    Symbol{";", TokenKind::kSemicolon},
    Symbol{":", TokenKind::kColon},
    Symbol{"*", TokenKind::kStar},
    Symbol{"+", TokenKind::kPlus},
    Symbol{"-", TokenKind::kMinus},
    Symbol{"=", TokenKind::kEqual},
    Symbol{"\\", TokenKind::kBackslash},
    Symbol{"/", TokenKind::kSlash},
    Symbol{"<", TokenKind::kLess},
    Symbol{">", TokenKind::kGreater},
    Symbol{"[", TokenKind::kLeftBracket},
    Symbol{"]", TokenKind::kRightBracket},
    Symbol{"{", TokenKind::kLeftBrace},
    Symbol{"}", TokenKind::kRightBrace},
    Symbol{"|", TokenKind::kBar},
    Symbol{"(", TokenKind::kLeftParen},
    Symbol{")", TokenKind::kRightParen},
    Symbol{"?", TokenKind::kQuestion},
};

const Symbol* FindSymbol(std::string_view text) {
  for (const Symbol& symbol : kSymbols) {
    if (text.starts_with(symbol.text)) return &symbol;
  }
  return nullptr;
}

class Lexer {
 public:
  Lexer(const Source& source, Diagnostics& diagnostics)
      : source_(source), diagnostics_(diagnostics), text_(source.Text()) {}

  std::vector<Token> Run() {
    if (text_.starts_with("\xEF\xBB\xBF")) at_ = 3;  // byte order mark
    while (SkipBlanks() && !diagnostics_.Full()) ScanToken();
    Add(TokenKind::kEnd, text_.size(), text_.size());
    return std::move(tokens_);
  }

 private:
  char Peek(std::size_t ahead = 0) const { return at_ + ahead < text_.size() ? text_[at_ + ahead] : '\0'; }
  void SkipWhile(bool (*belongs)(char)) {
    while (at_ < text_.size() && belongs(text_[at_])) ++at_;
  }

  void Add(TokenKind kind, std::size_t from, std::size_t to) {
    tokens_.push_back({static_cast<std::uint32_t>(from), static_cast<std::uint32_t>(to - from), kind});
  }
  void Report(std::size_t offset, Code code, std::string message) {
    diagnostics_.Error({&source_, static_cast<std::uint32_t>(offset)}, code, std::move(message));
  }

  // Blanks and both kinds of remark. Returns false at the end of the text.
  bool SkipBlanks() {
    for (;;) {
      SkipWhile(IsBlank);
      if (Peek() == '-' && Peek(1) == '-') {
        SkipWhile([](char c) { return !EndsLine(c); });
      } else if (Peek() == '(' && Peek(1) == '*') {
        SkipRemark();
      } else {
        return at_ < text_.size();
      }
    }
  }

  // "(*" ... "*)", nested. Without its end the remark is the rest of the text.
  void SkipRemark() {
    const std::size_t start = at_;
    std::size_t depth = 0;
    do {
      at_ = text_.find_first_of("(*", at_);
      if (at_ == std::string_view::npos) {
        at_ = text_.size();
        Report(start, Code::kOpenRemark, "this remark has no end: expected '*)'");
        return;
      }
      const bool opens = Peek() == '(' && Peek(1) == '*';
      const bool closes = Peek() == '*' && Peek(1) == ')';
      if (opens) ++depth;
      if (closes) --depth;
      at_ += opens || closes ? 2 : 1;
    } while (depth > 0);
  }

  void ScanToken() {
    const char c = Peek();
    if (IsLetter(c)) return ScanWord();
    if (IsDigit(c)) return ScanNumber();
    if (c == '\'') return ScanText();
    if (c == '"') return ScanEncodedText();
    if (c == '%') return ScanBinary();
    if (const Symbol* symbol = FindSymbol(text_.substr(at_, 4))) {
      Add(symbol->kind, at_, at_ + symbol->text.size());
      at_ += symbol->text.size();
      return;
    }
    SkipBadCharacters();
  }

  // letter { letter | digit | "_" }
  void ScanWord() {
    const std::size_t start = at_;
    SkipWhile(IsWordPart);
    Add(WordKind(text_.substr(start, at_ - start)), start, at_);
  }

  // digits [ "." [ digits ] ] [ "e" [ sign ] digits ]
  void ScanNumber() {
    const std::size_t start = at_;
    TokenKind kind = TokenKind::kInteger;
    SkipWhile(IsDigit);
    if (Peek() == '.') {
      kind = TokenKind::kReal;
      ++at_;
      SkipWhile(IsDigit);
    }
    const std::size_t sign = Peek(1) == '+' || Peek(1) == '-' ? 1 : 0;
    if ((Peek() == 'e' || Peek() == 'E') && IsDigit(Peek(1 + sign))) {
      kind = TokenKind::kReal;
      at_ += 1 + sign;
      SkipWhile(IsDigit);
    }
    Add(kind, start, at_);
  }

  // "'" { any character of the line, "'" doubled } "'"
  void ScanText() {
    const std::size_t start = at_++;
    for (;;) {
      SkipWhile([](char c) { return c != '\'' && !EndsLine(c); });
      if (Peek() != '\'') {
        Report(start, Code::kOpenText, "this string does not end on its line: expected \"'\"");
        break;
      }
      ++at_;
      if (Peek() != '\'') break;
      ++at_;
    }
    Add(TokenKind::kText, start, at_);
  }

  // '"' { eight hexadecimal digits } '"'
  void ScanEncodedText() {
    const std::size_t start = at_++;
    SkipWhile([](char c) { return c != '"' && !EndsLine(c); });
    if (Peek() != '"') {
      Report(start, Code::kOpenText, "this encoded string does not end on its line: expected '\"'");
    } else {
      CheckEncoded(start + 1, at_);
      ++at_;
    }
    Add(TokenKind::kEncodedText, start, at_);
  }

  void CheckEncoded(std::size_t from, std::size_t to) {
    for (std::size_t i = from; i < to; ++i) {
      if (IsHexDigit(text_[i])) continue;
      return Report(i, Code::kBadLiteral, "expected a hexadecimal digit in an encoded string");
    }
    if ((to - from) % 8 == 0) return;
    Report(from, Code::kBadLiteral, "expected eight hexadecimal digits for each character of an encoded string");
  }

  // "%" bit { bit }
  void ScanBinary() {
    const std::size_t start = at_++;
    SkipWhile([](char c) { return c == '0' || c == '1'; });
    if (at_ == start + 1 || IsWordPart(Peek())) {
      Report(at_, Code::kBadLiteral, "expected 0 or 1 in a binary literal");
      SkipWhile(IsWordPart);
    }
    Add(TokenKind::kBinary, start, at_);
  }

  // One report for a run of them.
  void SkipBadCharacters() {
    Report(at_, Code::kBadCharacter, "expected a token: no token starts with this character");
    while (at_ < text_.size()) {
      const char c = text_[at_];
      if (IsBlank(c) || IsWordPart(c) || c == '\'' || c == '"' || c == '%') {
        if (c != '_') break;
      } else if (FindSymbol(text_.substr(at_, 4)) != nullptr) {
        break;
      }
      ++at_;
    }
  }

  const Source& source_;
  Diagnostics& diagnostics_;
  std::string_view text_;
  std::size_t at_ = 0;
  std::vector<Token> tokens_;
};

}  // namespace

std::vector<Token> Tokenise(const Source& source, Diagnostics& diagnostics) { return Lexer(source, diagnostics).Run(); }

}  // namespace express
