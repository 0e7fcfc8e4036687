#include "read/transfer/place.h"

#include <string_view>

#include "read/transfer/wide_read.h"
#include "support/eight_bytes.h"

namespace steprt {
namespace {

constexpr std::string_view kEndsOfWords =
    "' ()\n;=,\r$\t";                            // as the tokeniser has them, but for the `#` of a reference
constexpr std::string_view kSingles = "(),;=$";  // tokens of one byte that no word has

bool IsOneOf(std::string_view bytes, char c) { return bytes.find(c) != std::string_view::npos; }

// The first byte of the block, without a byte order mark.
const char* Begin(const InputFile& in) {
  const std::uint64_t offset = in.OffsetOf(in.Begin());
  return in.Begin() + (in.LineStart() > offset ? in.LineStart() - offset : 0);
}

// The place of a byte of the block. The start of its line is remembered: many reports may be about one line.
Place PlaceOf(STEPtransfer* t, const char* byte, int line) {
  const InputFile& in = *t->file.in;
  LineStart& known = t->wide->lineStart;
  const std::uint64_t offset = in.OffsetOf(byte);
  if (known.line != line || known.offset > offset) {
    const char* const start = StartOfLine(Begin(in), byte);
    const bool isBefore = start <= in.Begin() && in.Before() != '\n';
    known = {line, isBefore ? in.LineStart() : in.OffsetOf(start)};
  }
  return {line, static_cast<int>(offset - known.offset) + 1, offset};
}

// A token that ends at `end`, and the line of that.
struct Ending {
  const char* end;
  int line;
};

// Goes back to the last byte before blanks and comments.
Ending BeforeBlanks(STEPtransfer* t) {
  const char* const begin = Begin(*t->file.in);
  Ending last = {t->file.in->Cursor(), t->line};
  for (;;) {
    while (last.end != begin && IsOneOf(" \t\r\n", last.end[-1])) last.line -= *--last.end == '\n' ? 1 : 0;
    const std::string_view text(begin, static_cast<std::size_t>(last.end - begin));
    const std::size_t comment = text.size() >= 4 && text.substr(text.size() - 2) == "*/" ? text.rfind("/*") : text.npos;
    if (comment == text.npos) return last;
    while (last.end != begin + comment) last.line -= *--last.end == '\n' ? 1 : 0;
  }
}

// The start of a text that ends at `end`. A doubled apostrophe belongs to it.
const char* StartOfText(const char* begin, const char* end) {
  for (const char* p = end - 1; p != begin; --p) {
    if (p[-1] != '\'') continue;
    if (p - 1 == begin || p[-2] != '\'') return p - 1;
    --p;
    if (p == begin) break;
  }
  return end - 1;
}

const char* StartOfWord(const InputFile& in, const char* end) {
  const char* const begin = Begin(in);
  const char* p = end;
  while (p != begin && !IsOneOf(kEndsOfWords, p[-1])) {
    if (*--p == '#') break;
  }
  return StartOfLastWord(in, p, end);
}

const char* StartOfToken(const InputFile& in, const char* end) {
  if (end[-1] == '\'') return StartOfText(Begin(in), end);
  return IsOneOf(kSingles, end[-1]) ? end - 1 : StartOfWord(in, end);
}

}  // namespace

const char* StartOfLastWord(const InputFile& in, const char* start, const char* end) {
  if (start == in.Begin() && *start == '/' && in.Before() == '*') ++start;  // the end of a comment
  std::string_view word(start, static_cast<std::size_t>(end - start));
  const std::size_t comment = word.rfind("*/");
  if (comment != word.npos) word.remove_prefix(comment + 2);
  const std::size_t quote = word.rfind('"');
  if (quote != word.npos && quote + 1 != word.size()) word.remove_prefix(quote + 1);
  while (word.size() > 1 && word[0] == '*') word.remove_prefix(1);
  return word.empty() ? end - 1 : word.data();
}

void BeginSlowToken(STEPtransfer* t) {
  SlowToken& token = t->wide->slow;
  token.start = t->file.in->Cursor() - 1;
  token.startBlock = t->file.in->Blocks();
  token.end = nullptr;
  token.line = t->line;
  token.hasCrossed = false;
}

void EndSlowToken(STEPtransfer* t) {
  t->wide->slow.end = t->file.in->Cursor();
  t->wide->slow.endBlock = t->file.in->Blocks();
}

void KeepSlowToken(STEPtransfer* t) {
  SlowToken& token = t->wide->slow;
  if (token.hasCrossed || token.startBlock != t->file.in->Blocks()) return;
  token.place = PlaceOf(t, token.start, token.line);
  token.hasCrossed = true;
}

Place PlaceOfSlowToken(STEPtransfer* t) {
  const SlowToken& token = t->wide->slow;
  return token.hasCrossed ? token.place : PlaceOf(t, token.start, token.line);
}

Place PlaceOfReference(STEPtransfer* t) {
  const InputFile& in = *t->file.in;
  const char* const begin = Begin(in);
  const char* p = in.Cursor();
  while (p != begin && p[-1] >= '0' && p[-1] <= '9') --p;
  const bool isOfFastPath = p != in.Cursor() && p != begin && p[-1] == '#';
  return isOfFastPath ? PlaceOf(t, p - 1, t->line) : PlaceOfLastToken(t);
}

Place PlaceOfLastToken(STEPtransfer* t) {
  const InputFile* in = t->file.in;
  if (!in) return {t->line, 0, 0};
  const SlowToken& slow = t->wide->slow;
  const auto isSlow = [&](const char* end) { return slow.endBlock == in->Blocks() && slow.end == end; };
  if (isSlow(in->Cursor())) return PlaceOfSlowToken(t);  // a comment may have ended a word
  const Ending last = BeforeBlanks(t);
  if (isSlow(last.end)) return PlaceOfSlowToken(t);
  const bool isAtBegin = last.end == Begin(*in);
  return PlaceOf(t, isAtBegin ? last.end : StartOfToken(*in, last.end), last.line);
}

void KeepPlaceOfLastToken(STEPtransfer* t, const Place& place) {
  SlowToken& token = t->wide->slow;
  token.place = place;
  token.hasCrossed = true;
  EndSlowToken(t);
}

void NoteFault(STEPtransfer* t) {
  if (t->wide) t->wide->noted = PlaceOfLastToken(t);
}

}  // namespace steprt
