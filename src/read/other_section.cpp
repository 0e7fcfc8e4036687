#include "read/other_section.h"

#include "read/char_class.h"
#include "read/progress.h"
#include "read/transfer/keywords.h"
#include "support/ascii.h"

namespace steprt {
namespace {

constexpr ByteSet kIsWord =
    MakeByteSet("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_-+=");  // those of a signature, too
constexpr ByteSet kEndsAddress = MakeByteSet("> \t\r\n");

int GetByte(STEPtransfer* t) {
  const int c = t->file.in->Get();
  if (c == '\n') CountLine(t);
  return c;
}

// Reads up to one of `ends`, and that one too.
void PassOverTo(STEPtransfer* t, const ByteSet& ends) {
  for (int c = GetByte(t); c != InputFile::kEnd && !ends[static_cast<unsigned>(c)];) c = GetByte(t);
}

void PassOverComment(STEPtransfer* t) {
  int before = 0;
  for (int c = GetByte(t); c != InputFile::kEnd && !(before == '*' && c == '/'); c = GetByte(t)) before = c;
}

// Reads the rest of a word and the blanks after it. Returns whether it is the ENDSEC before a ";" or a comment.
bool IsEndsec(STEPtransfer* t, int first) {
  constexpr std::size_t kLength = 6;
  char word[kLength + 1] = {static_cast<char>(first)};
  std::size_t count = 1;
  InputFile& in = *t->file.in;
  for (int c; (c = in.Peek()) != InputFile::kEnd && kIsWord[static_cast<unsigned>(c)]; ++count) {
    if (count < kLength) word[count] = static_cast<char>(c);
    in.Get();
  }
  if (count != kLength || !EqualNoCase(word, SectionKeyword(SEC_ENDSEC))) return false;
  int c;
  while ((c = in.Peek()) == '\n' || (c != InputFile::kEnd && kIsBlank[static_cast<unsigned>(c)])) GetByte(t);
  return c == ';' || c == '/';
}

}  // namespace

int PassOverSection(STEPtransfer* t) {
  static constexpr ByteSet kEndsText = MakeByteSet("'");
  static constexpr ByteSet kEndsBinary = MakeByteSet("\"");
  for (int c; (c = GetByte(t)) != InputFile::kEnd;) {
    NoteProgress(t);
    if (c == '\'') PassOverTo(t, kEndsText);  // a doubled apostrophe begins another text
    if (c == '"') PassOverTo(t, kEndsBinary);
    if (c == '<') PassOverTo(t, kEndsAddress);
    if (c == '/' && t->file.in->Peek() == '*') PassOverComment(t);
    if (kIsWord[static_cast<unsigned>(c)] && IsEndsec(t, c)) return SEC_ENDSEC;
  }
  return SEC_NONE;
}

}  // namespace steprt
