// The readers of items: the kind of a value, typed values, lists and tokens.
//
//   value = "$" | "*" | reference | number | text | enumerator | binary | typed | list
//   typed = name "(" [value {"," value}] ")"
//   list  = "(" [value {"," value}] ")"
//
// In XML the outermost value is the text of an element. While it is open, the transfer reads clear text from that text:
// `xml` is false, so that every reader takes its tokens from there.
#include "read/items.h"

#include <cstring>
#include <string_view>
#include <utility>

#include "read/attribute.h"
#include "read/char_class.h"
#include "read/tokeniser.h"
#include "read/transfer/place.h"
#include "read/transfer/read_store.h"
#include "read/transfer/report.h"
#include "read/transfer/wide_read.h"
#include "steprt/items.h"
#include "support/ascii.h"
#include "support/empty_text.h"
#include "xml/values/element.h"
#include "xml/values/kind.h"

namespace {

using namespace steprt;

// ---- clear text -----------------------------------------------------------------------------------------------------

// The text of the number or reference that ends at the cursor. It is in the block. Only if it began in the block
// before, the tokeniser has copied it to the buffer.
std::string_view NumberText(STEPtransfer* t) {
  const InputFile& in = *t->file.in;
  const WideRead* wide = t->wide;
  if (wide && wide->wordEnd == in.Cursor() && wide->wordBlock == in.Blocks()) return wide->word;
  const char* start = in.Cursor();
  while (start != in.Begin() && !IsIn(kIsDelimiter, start[-1])) --start;
  if (wide) start = StartOfLastWord(in, start, in.Cursor());
  const bool crosses = !wide && start == in.Begin() && (!IsIn(kIsDelimiter, in.Before()) || in.Before() == '#');
  if (crosses) return t->buffer;
  if (start != in.Begin() && start[-1] == '#') --start;
  return {start, static_cast<std::size_t>(in.Cursor() - start)};
}

// A word that the tokeniser takes for the real 0 may be a binary or no number at all.
STEPitem KindOfZero(STEPtransfer* t) {
  const char first = NumberText(t)[0];
  if (first == '"') return STEP_BINARY;
  return IsIn(kStartsNumber, first) ? STEP_REAL : STEP_OTHER;
}

STEPitem KindOf(STEPtransfer* t, int token) {
  switch (token) {
    case TOK_SEMI:
    case TOK_CLOSE:
    case TOK_EOF:
      return STEP_END;
    case TOK_NULL:
      return t->file.in->Cursor()[-1] == '*' ? STEP_DERIVED : STEP_OMITTED;
    case TOK_REF:
      return STEP_REF;
    case TOK_INT:
      return STEP_INT;
    case TOK_REAL:
      return t->value.real == 0.0 ? KindOfZero(t) : STEP_REAL;
    case TOK_TEXT:
      return STEP_TEXT;
    case TOK_ENUM:
      return STEP_ENUM;
    case TOK_NAME:
      return NextByteIs(t, '(') ? STEP_TYPED : STEP_OTHER;
    case TOK_OPEN:
      t->items.isListAsked = true;
      return STEP_LIST;
    default:
      return STEP_OTHER;
  }
}

// Reads the token of the next value and pushes it back for the next reader. An empty value between two commas is passed
// over: a comma that is pushed back would be the separator of the next value.
STEPitem Peek(STEPtransfer* t) {
  int token = NextAttrToken(t);
  while (token == TOK_COMMA) token = NextAttrToken(t);
  const STEPitem kind = KindOf(t, token);
  if (token != TOK_SEMI) t->pushedToken = token;
  return kind;
}

void SkipValue(STEPtransfer* t) {
  const STEPitem kind = Peek(t);
  if (kind == STEP_END) return;
  t->pushedToken = kNoToken;
  if (kind == STEP_TYPED) NextToken(t);
  if (kind == STEP_TYPED || kind == STEP_LIST) SkipToClose(t, 1);
}

// The first byte of every value that is there.
constexpr ByteSet kStartsPresentValue = MakeByteSet("'#.+-0123456789(\"ABCDEFGHIJKLMNOPQRSTUVWXYZ");

STEPitem NullFromTokens(STEPtransfer* t) {
  if (t->pushedToken == kNoToken && t->lastToken != TOK_SEMI) {
    const char* next = t->file.in->Cursor();
    if (*next == ',') ++next;
    if (IsIn(kStartsPresentValue, *next)) return STEP_END;
  }
  const STEPitem kind = Peek(t);
  if (kind != STEP_OMITTED && kind != STEP_DERIVED) return STEP_END;
  t->pushedToken = kNoToken;
  return kind;
}

const char* OpenFromTokens(STEPtransfer* t) {
  const STEPitem kind = Peek(t);
  if (kind != STEP_TYPED && kind != STEP_LIST) return nullptr;
  if (t->items.depth == STEPopenLimit) {
    ReportError(t, kTooDeep);
    SkipValue(t);
    return nullptr;
  }
  t->pushedToken = kNoToken;
  ++t->items.depth;
  if (kind == STEP_LIST) return EmptyText();
  NextToken(t);  // the `(`, which leaves the name where it is
  return t->value.text;
}

// The text of a token that has just been read.
std::string_view TokenText(STEPtransfer* t, int token) {
  switch (token) {
    case TOK_REF:
    case TOK_INT:
    case TOK_REAL:
      return NumberText(t);
    case TOK_NULL:
    case TOK_EQUAL:
      return {t->file.in->Cursor() - 1, 1};
    default:
      return t->value.text;
  }
}

const char* TokenFromTokens(STEPtransfer* t) {
  const STEPitem kind = Peek(t);
  if (kind == STEP_END || kind == STEP_TYPED || kind == STEP_LIST) return EmptyText();
  const std::string_view text = TokenText(t, std::exchange(t->pushedToken, kNoToken));
  const bool isWhole = t->wide && (kind == STEP_TEXT || text.data() == t->wide->token.Chars());
  if (isWhole || text.data() == t->buffer) return text.data();
  const std::size_t length = text.copy(t->buffer, kTokenLimit);
  t->buffer[length] = '\0';
  return t->buffer;
}

// ---- XML ------------------------------------------------------------------------------------------------------------

// Turns the transfer to the clear text in an element. Returns false, with a report, when memory runs out.
bool EnterElement(STEPtransfer* t, const char* text) {
  ItemState& items = t->items;
  if (!items.input) items.input.reset(InputFile::MemoryOrNull());
  if (!items.input) return Refuse(t, kOutOfMemory, false);
  items.input->Restart(text);
  items.line = t->line;
  items.isInElement = true;
  t->file.in = items.input.get();
  t->pushedToken = t->lastToken = kNoToken;
  t->xml = t->byName = false;
  return true;
}

void LeaveElement(STEPtransfer* t) {
  t->xml = t->byName = true;
  t->pushedToken = t->lastToken = kNoToken;
  t->file.in = nullptr;
  t->items.isInElement = false;
  t->line = t->items.line;  // line feeds in the element are not lines of the report
}

const char* SkipElementBlanks(const char* text) {
  while (IsIn(kIsBlank, *text) || *text == '\n') ++text;
  return text;
}

// The kind of a text that begins as clear text does: with a bracket, or with a name and a bracket. STEP_END for others.
STEPitem KindOfBracketed(const char* text) {
  text = SkipElementBlanks(text);
  if (*text == '(') return STEP_LIST;
  if (!IsLetter(*text)) return STEP_END;
  while (*text != '\0' && !IsIn(kIsDelimiter, *text)) ++text;
  return *SkipElementBlanks(text) == '(' ? STEP_TYPED : STEP_END;
}

STEPitem KindOfElement(const char* text) {
  if (const STEPitem kind = KindOfBracketed(text)) return kind;
  if (std::strcmp(text, "*") == 0) return STEP_DERIVED;
  if (*text == '"') return STEP_BINARY;
  switch (ClassifyText(text)) {
    case TOK_ERROR:
      return STEP_END;
    case TOK_NULL:
      return std::strcmp(text, "$") == 0 ? STEP_OMITTED : STEP_TEXT;
    case TOK_REF:
      return STEP_REF;
    case TOK_INT:
      return STEP_INT;
    case TOK_REAL:
      return STEP_REAL;
    case TOK_ENUM:
      return STEP_ENUM;
    default:
      return STEP_TEXT;
  }
}

// An empty element is an empty text. Only a missing one is a value that is not there.
STEPitem NullFromElement(STEPtransfer* t, const char* name) {
  const STEPelement* element = t->store->childElements.Find(name);
  if (!element) return STEP_OMITTED;
  if (!element->value) return STEP_END;
  if (std::strcmp(element->value, "*") == 0) return STEP_DERIVED;
  return std::strcmp(element->value, "$") == 0 ? STEP_OMITTED : STEP_END;
}

const char* OpenFromElement(STEPtransfer* t, const char* name) {
  const char* text = ElementValue(t, name);
  if (!KindOfBracketed(text) || !EnterElement(t, text)) return nullptr;
  return OpenFromTokens(t);
}

}  // namespace

STEPitem rSTEPkind(STEPtransfer* t, const char* name) {
  return TakesElement(t, name) ? KindOfElement(ElementValue(t, name)) : Peek(t);
}

STEPitem rSTEPnull(STEPtransfer* t, const char* name) {
  return TakesElement(t, name) ? NullFromElement(t, name) : NullFromTokens(t);
}

const char* rSTEPopen(STEPtransfer* t, const char* name) {
  return TakesElement(t, name) ? OpenFromElement(t, name) : OpenFromTokens(t);
}

void rSTEPclose(STEPtransfer* t) {
  if (t->items.depth == 0) return;
  if (t->lastToken != TOK_SEMI) SkipToClose(t, 1);
  if (--t->items.depth == 0 && t->items.isInElement) LeaveElement(t);
}

void rSTEPskip(STEPtransfer* t, const char* name) {
  if (!TakesElement(t, name)) SkipValue(t);
}

bool rSTEPrefuse(STEPtransfer* t, const char* name, const char* message) {
  if (TakesElement(t, name)) return false;
  Peek(t);
  if (t->lastToken != TOK_SEMI) ReportError(t, message);
  SkipValue(t);
  return true;
}

const char* rSTEPtoken(STEPtransfer* t, const char* name) {
  return TakesElement(t, name) ? ElementValue(t, name) : TokenFromTokens(t);
}

void steprt::SkipToClose(STEPtransfer* t, long long depth) {
  while (depth > 0) {
    const int token = NextToken(t);
    if (token == TOK_OPEN) ++depth;
    if (token == TOK_CLOSE) --depth;
    if (token == TOK_SEMI) t->lastToken = TOK_SEMI;
    if (token == TOK_SEMI || token == TOK_EOF) return;
  }
}

void steprt::CloseAllItems(STEPtransfer* t) {
  while (t->items.depth > 0) rSTEPclose(t);
}
