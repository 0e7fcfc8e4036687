#include "write/standard_header.h"

#include <cstdlib>
#include <utility>

#include "platform/clock.h"
#include "schema/chain.h"
#include "steprt/version.h"
#include "support/ascii.h"
#include "support/text_buffer.h"
#include "write/wide_values.h"

namespace steprt {
namespace {

constexpr char kLevel[] = "2;1";  // of the implementation

// FILE_NAME(...); or an element of that name. `writeValues` writes the values.
template <typename WriteValues>
void WriteHeaderRecord(STEPtransfer* t, const char* keyword, WriteValues writeValues) {
  const bool isDocument = t->wideWrite->isDocument;
  t->lastToken = TOK_OPEN;
  OpenWide(t, keyword, isDocument ? nullptr : keyword);
  writeValues();
  CloseWide(t);
  if (isDocument) return;
  PutToken(t, ";");
  PutLineEnd(t);
}

// A list without texts becomes one with `otherwise`.
void WriteTexts(STEPtransfer* t, const STEPtexts* texts, const char* otherwise) {
  OpenWide(t, nullptr, nullptr);
  const int count = texts ? texts->Count() : 0;
  if (count == 0) WriteWideText(t, nullptr, otherwise);
  for (int i = 0; i < count; ++i) WriteWideText(t, nullptr, texts->At(i));
  CloseWide(t);
}

void WriteField(STEPtransfer* t, const STEPstring* field, const char* otherwise) {
  const char* text = field ? static_cast<const char*>(*field) : "";
  WriteWideText(t, nullptr, *text ? text : otherwise);
}

void AddDigits(TextBuffer& text, int number, int width) {
  for (int least = 10; width > 1; --width, least *= 10) {
    if (number < least) text.Add('0');
  }
  text.Add(number);
}

// The local time, as 2026-11-25T16:29:00+01:00.
void AddTimeStamp(TextBuffer& text) {
  const DateAndTime now = LocalNow();
  AddDigits(text, now.year, 4);
  for (const auto& [separator, number] :
       {std::pair('-', now.month), std::pair('-', now.day), std::pair('T', now.hour), std::pair(':', now.minute),
        std::pair(':', now.second), std::pair(now.offset < 0 ? '-' : '+', std::abs(now.offset) / 60),
        std::pair(':', std::abs(now.offset) % 60)}) {
    text.Add(separator);
    AddDigits(text, number, 2);
  }
}

const char* WithoutFolder(const char* path) {
  for (const char* c = path; *c; ++c) {
    if (*c == '/' || *c == '\\') path = c + 1;
  }
  return path;
}

void AddLibrary(TextBuffer& text) {
  text.Add("steprt ").Add(STEPRT_VERSION_MAJOR).Add('.').Add(STEPRT_VERSION_MINOR).Add('.').Add(STEPRT_VERSION_PATCH);
}

void WriteFileName(STEPtransfer* t, const STEPfileHeader* header) {
  TextBuffer time;
  AddTimeStamp(time);
  TextBuffer library;
  AddLibrary(library);
  WriteField(t, header ? &header->name : nullptr, WithoutFolder(t->fileName));
  WriteField(t, header ? &header->timeStamp : nullptr, time.Text());
  WriteTexts(t, header ? &header->author : nullptr, "");
  WriteTexts(t, header ? &header->organization : nullptr, "");
  WriteField(t, header ? &header->preprocessorVersion : nullptr, library.Text());
  WriteField(t, header ? &header->originatingSystem : nullptr, "");
  WriteField(t, header ? &header->authorization : nullptr, "");
}

}  // namespace

void WriteStandardHeader(STEPtransfer* t, const STEPfileHeader* header) {
  TextBuffer schema;
  for (const char* c = NameOf(*t->schema); *c; ++c) schema.Add(ToUpper(*c));
  WriteHeaderRecord(t, "FILE_DESCRIPTION", [=] {
    WriteTexts(t, header ? &header->description : nullptr, "");
    WriteWideText(t, nullptr, kLevel);
  });
  WriteHeaderRecord(t, "FILE_NAME", [=] { WriteFileName(t, header); });
  WriteHeaderRecord(t, "FILE_SCHEMA", [&] { WriteTexts(t, header ? &header->schemas : nullptr, schema.Text()); });
}

}  // namespace steprt
