#include "write/wide_values.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>

#include "read/transfer/report.h"
#include "steprt/aggregate.h"
#include "support/ascii.h"
#include "support/number_print.h"
#include "write/element.h"
#include "write/wide_text.h"
#include "xml/values/escape.h"
#include "xml/values/names.h"

namespace steprt {
namespace {

const char* ElementName(const char* name) { return name ? name : kUnnamedElement; }

void PutBytes(STEPtransfer* t, std::string_view bytes) {
  if (t->wideWrite->isDocument) return EscapeText(*t->file.out, bytes);
  t->file.out->Put(bytes);
  t->wideWrite->column += bytes.size();
}

// A letter in upper case, and `_` for a byte that no file may have in a token.
char ToStandard(char c) { return c >= ' ' && c <= '~' ? ToUpper(c) : '_'; }

// Ends the line if it has no place for a token of that length.
void MakePlace(STEPtransfer* t, std::size_t length) {
  const WideWrite& wide = *t->wideWrite;
  if (!wide.isDocument && wide.column > 0 && wide.column + length > kLineLimit) PutLineEnd(t);
}

void PutSeparator(STEPtransfer* t, int kind) {
  if (t->lastToken != TOK_OPEN) PutToken(t, ",");
  t->lastToken = kind;
}

// What comes before a value and after it: the comma, or the tags of its element.
class ValueFrame {
 public:
  ValueFrame(STEPtransfer* t, const char* name, int kind) : t_(t), name_(ElementName(name)) {
    PutKeyword(t, t->wideWrite->keyword);
    if (IsInElement()) {
      PutTag(*t->file.out, "<", name_);
    } else {
      PutSeparator(t, kind);
    }
  }
  ~ValueFrame() {
    if (IsInElement()) PutTag(*t_->file.out, "</", name_);
  }
  ValueFrame(const ValueFrame&) = delete;
  ValueFrame& operator=(const ValueFrame&) = delete;

 private:
  bool IsInElement() const { return t_->wideWrite->isDocument && t_->items.depth == 0; }

  STEPtransfer* const t_;
  const char* const name_;
};

class LengthSink final : public TextSink {
 public:
  void Put(std::string_view piece) override { length += piece.size(); }
  std::size_t length = 0;
};

class TransferSink final : public TextSink {
 public:
  explicit TransferSink(STEPtransfer* t) : t_(t) {}
  void Put(std::string_view piece) override { PutBytes(t_, piece); }

 private:
  STEPtransfer* const t_;
};

// The length of the text, or a lower one that is beyond a line.
std::size_t LengthOf(std::string_view text) {
  if (text.size() > kLineLimit) return text.size();
  LengthSink sink;
  PutStandardText(text, sink);
  return sink.length;
}

// Whether the text of an element is no value but a text, for everyone who reads it, without apostrophes.
bool IsClearly(const char* text) { return IsLetter(*text) && !std::strchr(text, '(') && !std::strchr(text, '\''); }

// Writes a list, whose items `writeItem` writes.
template <typename WriteItem>
void WriteWideList(STEPtransfer* t, const char* name, const STEPaggr* aggr, WriteItem writeItem) {
  if (!aggr) return WriteWideToken(t, name, "$");
  OpenWide(t, name, nullptr);
  for (const STEPlist* node = aggr->head; node; node = node->next) writeItem(*node);
  CloseWide(t);
}

}  // namespace

void PutLineEnd(STEPtransfer* t) {
  t->file.out->Put('\n');
  t->wideWrite->column = 0;
  CountLine(t);
}

void PutToken(STEPtransfer* t, std::string_view token) {
  MakePlace(t, token.size());
  PutBytes(t, token);
}

void PutUpperCase(STEPtransfer* t, const char* keyword) {
  const std::string_view word = keyword;
  MakePlace(t, word.size());
  char upper[64];
  for (std::size_t at = 0; at < word.size(); at += sizeof upper) {
    const std::string_view piece = word.substr(at, sizeof upper);
    std::transform(piece.begin(), piece.end(), upper, ToStandard);
    PutBytes(t, std::string_view(upper, piece.size()));
  }
}

void PutName(STEPtransfer* t, std::uint64_t name) {
  char text[24] = "#";
  const char* end = std::to_chars(text + 1, text + sizeof text, name).ptr;
  PutToken(t, std::string_view(text, static_cast<std::size_t>(end - text)));
}

void PutStandardQuoted(STEPtransfer* t, std::string_view text) {
  MakePlace(t, LengthOf(text) + 2);
  PutBytes(t, "'");
  TransferSink sink(t);
  PutStandardText(text, sink);
  PutBytes(t, "'");
}

void WriteWideText(STEPtransfer* t, const char* name, const char* text) {
  if (!text) return WriteWideToken(t, name, "$");
  const bool isBare = t->wideWrite->isDocument && t->items.depth == 0 && IsClearly(text);
  const ValueFrame frame(t, name, TOK_TEXT);
  if (!isBare) return PutStandardQuoted(t, text);
  TransferSink sink(t);
  PutStandardText(text, sink);
}

void WriteWideInt(STEPtransfer* t, const char* name, int value) {
  const ValueFrame frame(t, name, TOK_INT);
  char text[kIntBuffer];
  PutToken(t, std::string_view(text, static_cast<std::size_t>(IntToText(text, value) - text)));
}

void WriteWideReal(STEPtransfer* t, const char* name, double value) {
  const ValueFrame frame(t, name, TOK_REAL);
  if (!std::isfinite(value)) {
    ReportError(t, kNoFiniteReal);
    return PutToken(t, "$");
  }
  char text[kExactRealBuffer];
  PutToken(t, std::string_view(text, static_cast<std::size_t>(ExactRealToText(text, value) - text)));
}

void WriteWideKeyword(STEPtransfer* t, const char* name, const char* keyword) {
  const ValueFrame frame(t, name, TOK_ENUM);
  PutUpperCase(t, keyword);
}

void WriteWideToken(STEPtransfer* t, const char* name, const char* token) {
  const ValueFrame frame(t, name, TOK_NAME);
  if (!token) return PutToken(t, "$");
  if (*token == '\'') return PutToken(t, token);
  PutUpperCase(t, token);
  const bool isOpen = *token == '"' && (token[1] == '\0' || token[std::strlen(token) - 1] != '"');
  if (isOpen) PutBytes(t, "\"");  // a binary with a null character
}

// An instance that the file does not have is reported at its first reference.
void WriteWideReference(STEPtransfer* t, const char* name, const STEPheader* object) {
  const ValueFrame frame(t, name, TOK_REF);
  const std::uint64_t found = object ? t->wideWrite->names.Find(object) : 0;
  if (found != 0) return PutName(t, found);
  if (object && t->wideWrite->names.IsFirstMiss(object)) ReportError(t, kNotInFile);
  PutToken(t, "$");
}

void OpenWide(STEPtransfer* t, const char* name, const char* keyword) {
  PutKeyword(t, t->wideWrite->keyword);
  if (t->wideWrite->isDocument && t->items.depth == 0) {
    t->items.element = ElementName(name);
    PutTag(*t->file.out, "<", t->items.element);
  } else {
    PutSeparator(t, TOK_OPEN);
  }
  if (keyword) PutUpperCase(t, keyword);
  PutToken(t, "(");
  t->lastToken = TOK_OPEN;
  ++t->items.depth;
}

void CloseWide(STEPtransfer* t) {
  PutToken(t, ")");
  t->lastToken = TOK_CLOSE;
  if (--t->items.depth == 0 && t->wideWrite->isDocument) PutTag(*t->file.out, "</", t->items.element);
}

void WriteWideReferences(STEPtransfer* t, const char* name, const STEPaggr* aggr) {
  WriteWideList(t, name, aggr, [=](const STEPlist& node) { WriteWideReference(t, nullptr, node.value.object); });
}

void WriteWideReals(STEPtransfer* t, const char* name, const STEPaggr* aggr) {
  WriteWideList(t, name, aggr, [=](const STEPlist& node) { WriteWideReal(t, nullptr, node.value.real); });
}

void WriteWideEnumerators(STEPtransfer* t, const STEPaggr* aggr, const char** names) {
  WriteWideList(t, nullptr, aggr,
                [=](const STEPlist& node) { WriteWideKeyword(t, nullptr, names[node.value.integer]); });
}

void WriteWideTexts(STEPtransfer* t, const char* name, const STEPaggr* aggr) {
  WriteWideList(t, name, aggr, [=](const STEPlist& node) { WriteWideText(t, nullptr, node.value.text); });
}

}  // namespace steprt
