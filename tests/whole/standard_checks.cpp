// The checks of standard files, whatever their bytes are.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

#include "platform/sax.h"
#include "steprt/any_record.h"
#include "steprt/encoding.h"
#include "support/faulty_calls.h"
#include "support/soundness.h"
#include "whole/file_checks.h"
#include "xml/documents.h"

namespace steprt_test {
namespace {

using steprt::AnyRecord;

// Of codes that a file in clear text may cause.
const std::set<std::string> kCodes = {"not-a-step-file",
                                      "missing-endsec",
                                      "missing-section",
                                      "wrong-schema",
                                      "unexpected-end",
                                      "too-long",
                                      "open-text",
                                      "unknown-entity",
                                      "header-syntax",
                                      "syntax",
                                      "doubled-name",
                                      "missing-text",
                                      "missing-integer",
                                      "missing-real",
                                      "missing-boolean",
                                      "missing-logical",
                                      "missing-enumerator",
                                      "unknown-boolean",
                                      "unknown-logical",
                                      "unknown-enumerator",
                                      "missing-reference",
                                      "missing-item",
                                      "missing-text-in-list",
                                      "dangling-reference",
                                      "reference-to-nothing",
                                      "wrong-reference",
                                      "open-comment",
                                      "open-binary",
                                      "integer-out-of-range",
                                      "bad-name",
                                      "large-name",
                                      "section-not-read",
                                      "cancelled",
                                      "too-deep",
                                      "refused-value"};

// What a program is told of one read.
struct Told {
  const std::string& bytes;
  int cancelled;  // the call of the progress function that cancels; 0 for none
  int calls = 0;
  std::uint64_t done = 0;
  Texts diagnostics{};
};

bool IsDocument(const std::string& bytes) {
  const std::size_t start = bytes.rfind("\xEF\xBB\xBF", 0) == 0 ? 3 : 0;
  const std::size_t first = bytes.find_first_not_of(" \t\r\n", start);
  return first != std::string::npos && bytes[first] == '<';
}

// Line and column follow from the offset, which is in the file.
void Diagnose(const STEPdiagnostic* d, void* context) {
  Told& told = *static_cast<Told*>(context);
  const std::string& bytes = told.bytes;
  told.diagnostics.push_back(std::string(d->code) + "/" + std::to_string(d->offset) + "/" +
                             std::to_string(d->instance) + "/" + (d->keyword ? d->keyword : "-") + "/" +
                             (d->attribute ? d->attribute : "-") + "/" + d->message);
  if (IsDocument(bytes)) return;
  EXPECT_EQ(kCodes.count(d->code), 1U) << d->code;
  ASSERT_LE(d->offset, bytes.size());
  std::size_t mark = 0;
  while (mark < 3 && mark < bytes.size() && bytes[mark] == "\xEF\xBB\xBF"[mark]) ++mark;
  const std::size_t feed = d->offset == 0 ? std::string::npos : bytes.rfind('\n', d->offset - 1);
  const std::size_t start = feed == std::string::npos ? mark : feed + 1;
  const auto end = bytes.begin() + static_cast<std::ptrdiff_t>(d->offset);
  EXPECT_EQ(d->line, 1 + std::count(bytes.begin(), end, '\n')) << d->code << " " << d->offset;
  EXPECT_EQ(static_cast<std::size_t>(d->column), d->offset - start + 1) << d->code << " " << d->offset;
}

bool Progress(std::uint64_t done, std::uint64_t total, void* context) {
  Told& told = *static_cast<Told*>(context);
  EXPECT_LE(told.done, done);
  EXPECT_TRUE(total == 0 || done <= total);
  told.done = done;
  return ++told.calls != told.cancelled;
}

// Options that follow from the number of bytes.
STEPreadOptions OptionsFor(const std::string& bytes, STEPfileHeader* header, Told* told) {
  STEPreadOptions options;
  options.check = bytes.size() % 3 == 1;
  if (bytes.size() % 2 == 0) options.tokenLimit = 300;
  if (bytes.size() % 5 < 3) options.header = header;
  if (bytes.size() % 7 < 4) options.unknown = AnyRecord::Row();
  if (bytes.size() % 11 < 8) options.diagnose = Diagnose;
  options.progress = Progress;
  options.context = told;
  return options;
}

std::string TextOf(const STEPfileHeader& header) {
  std::string text;
  for (const STEPtexts* list : {&header.description, &header.author, &header.organization, &header.schemas}) {
    for (int i = 0; i < list->Count(); ++i) text.append(list->At(i)) += '\n';
  }
  return text + static_cast<const char*>(header.name) + static_cast<const char*>(header.authorization);
}

// One read, from memory or from a file, into a model that is not the current one.
struct Read {
  Outcome outcome;
  std::string header;
  Texts diagnostics;
};

Read ReadOnce(ProjModel& model, const std::string& bytes, int cancelled, const char* path) {
  Told told = {bytes, cancelled};
  STEPfileHeader header;
  const STEPreadOptions options = OptionsFor(bytes, &header, &told);
  const std::string name = path ? path : "memory.stp";
  if (!path) model.Name("memory.stp");
  ProjModel other;
  const int result =
      path ? model.ReadStandard(path, &options) : model.ReadStandardFromMemory(bytes.data(), bytes.size(), &options);
  EXPECT_EQ(CurrentModel(), &other);
  EXPECT_TRUE(other.IsEmpty());
  ExpectSound(model);
  Read read = {{result, TakeReports(name), Population(model)}, TextOf(header), told.diagnostics};
  EXPECT_EQ(result, static_cast<int>(read.outcome.reports.size()));
  EXPECT_TRUE(!options.diagnose || result == static_cast<int>(read.diagnostics.size()));
  EXPECT_TRUE(cancelled == 0 || told.calls <= cancelled);
  return read;
}

// ---- values ---------------------------------------------------------------------------------------------------------

using Places = std::map<const STEPheader*, std::size_t>;

Places PlacesOf(STEPmodel& model) {
  Places places;
  std::size_t place = 0;
  for (STEPheader* object = model.Inst(); object; object = object->next) {
    places[object] = ++place;
    if (object->type != STEPcomplex::kType) continue;
    for (STEPheader* part = static_cast<STEPcomplex*>(object)->Parts(); part; part = part->next) places[part] = place;
  }
  return places;
}

// As it is written: in upper case, and with `_` for a byte that no keyword has.
std::string KeywordText(std::string keyword) {
  for (std::size_t i = 0; i < keyword.size(); ++i) {
    char& c = keyword[i];
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    const bool isOfKeyword = (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || (c == '!' && i == 0);
    if (!isOfKeyword) c = '_';
  }
  return keyword;
}

bool IsOpenBinary(const std::string& token) { return token[0] == '"' && (token.size() == 1 || token.back() != '"'); }

// A reference that was reported is written as an omitted value. Texts are decoded, because a directive may be written
// that the file has not.
void PutValue(std::string& out, const steprt::Value& value, const Places& places) {
  switch (value.Kind()) {
    case STEP_REF:
      out += value.Object() ? '@' + std::to_string(places.at(value.Object())) + ' ' : "$ ";
      return;
    case STEP_TEXT:
      out += Quoted(steprt::DecodeText(value.Chars()));
      return;
    case STEP_REAL:
      out += 'r' + RealText(value.Real());
      return;
    case STEP_TYPED:
    case STEP_LIST:
      if (value.Kind() == STEP_TYPED) out += KeywordText(value.Chars());
      out += '(';
      for (const steprt::Value& member : value) PutValue(out, member, places);
      out += ')';
      return;
    case STEP_ENUM:
    case STEP_BINARY:
      out += KeywordText(value.Chars());
      if (IsOpenBinary(value.Chars())) out += '_';  // a null character has cut it
      return;
    default:
      value.Print(out);
      out += ' ';
  }
}

void PutRecord(std::string& out, STEPheader* object, const Places& places) {
  const auto* record = static_cast<AnyRecord*>(object);
  out += KeywordText(record->Keyword.Get());
  PutValue(out, record->Values, places);
}

Texts ValuesOf(STEPmodel& model) {
  const Places places = PlacesOf(model);
  Texts all;
  for (STEPheader* object = model.Inst(); object; object = object->next) {
    all.emplace_back();
    if (object->type != STEPcomplex::kType) {
      PutRecord(all.back(), object, places);
      continue;
    }
    for (STEPheader* part = static_cast<STEPcomplex*>(object)->Parts(); part; part = part->next) {
      PutRecord(all.back() += '+', part, places);
    }
  }
  return all;
}

// A byte of the file that is no UTF-8 is decoded as U+FFFD, and written as one of ISO 8859-1.
std::string WithoutStrayBytes(const std::string& text) {
  std::string left;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text.compare(i, 3, "\xEF\xBF\xBD") == 0) {
      i += 2;
    } else if (text[i] == '\xC2' || text[i] == '\xC3') {
      ++i;
    } else {
      left += text[i];
    }
  }
  return left;
}

// An entity that no file has, since a schema needs one.
struct NoEntity : steprt::Entity<NoEntity, 0> {
  static constexpr const char* kKeyword = "-";
  void Describe(steprt::Description& /*d*/) override {}
};

constinit auto anySchema = steprt::Schema<NoEntity>("PROJ", CollectReport);

// Writes the model and reads it again: all values come back, unless the write reports that one cannot.
void ExpectValuesComeBack(steprt::Model& model, bool isXml) {
  STEPreadOptions reading;
  reading.unknown = AnyRecord::Row();
  STEPwriteOptions writing;
  writing.unknown = AnyRecord::Row();
  STEPfileHeader header;
  header.timeStamp = "now";
  const std::string path = TempPath(isXml ? "standard-write.xml" : "standard-write.stp");
  const int count =
      isXml ? model.WriteStandardXml(path, &header, &writing) : model.WriteStandard(path, &header, &writing);
  EXPECT_GE(count, 0);
  const bool isWhole = TakeReports(path).empty();
  steprt::Model again(&anySchema);
  const int result = again.ReadStandard(path, &reading);
  const Texts reports = TakeReports(path);
  if (isWhole) {
    EXPECT_EQ(reports, Texts()) << BytesOf(path);
    EXPECT_EQ(result, 0);
    Texts values = ValuesOf(model);
    Texts back = ValuesOf(again);
    ASSERT_EQ(back.size(), values.size());
    for (std::size_t i = 0; i < values.size(); ++i) {
      if (values[i].find("\xEF\xBF\xBD") == std::string::npos) {
        EXPECT_EQ(back[i], values[i]);
      } else {
        EXPECT_EQ(WithoutStrayBytes(back[i]), WithoutStrayBytes(values[i]));
      }
    }
  }
}

}  // namespace

void CheckStandard(const std::string& bytes) {
  const int cancelled = bytes.size() % 13 == 5 ? 1 : 0;
  ProjModel model;
  const Read read = ReadOnce(model, bytes, cancelled, nullptr);
  ProjModel again;
  const std::string path = MakeFile("read.xml", bytes);
  if (cancelled == 0) {  // where the block ends depends on the calls
    const FaultyCalls calls({.interrupted = true, .atMost = [&] { return bytes.size() % 2 ? 3 : 50; }});
    const Read inPieces = ReadOnce(again, bytes, cancelled, path.c_str());
    EXPECT_EQ(inPieces.diagnostics, read.diagnostics);
    EXPECT_EQ(inPieces.outcome, read.outcome);
    EXPECT_EQ(inPieces.header, read.header);
  }
  if (bytes.size() % 4 != 0) return;  // values that do not come back
  std::string left = TempPath("left.stp");
  model.Write(left.data(), "");
  model.WriteStandard(left.c_str());
  TakeReports(left);
}

void CheckStandardWrite(const std::string& bytes) {
  STEPreadOptions reading;
  reading.unknown = AnyRecord::Row();
  steprt::Model model(&anySchema);
  model.Name("memory.stp");
  model.ReadStandardFromMemory(bytes.data(), bytes.size(), &reading);
  TakeReports("memory.stp");
  ExpectValuesComeBack(model, false);
  if (bytes.size() % 2 == 0 && steprt::saxService) ExpectValuesComeBack(model, true);
}

}  // namespace steprt_test
