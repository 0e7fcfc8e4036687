#include "whole/reference/reader.h"

#include <strings.h>

#include "host/plain_host.h"
#include "whole/reference/attributes.h"

namespace steprt_test {
namespace {

bool IsWord(const std::string& text, const char* word) { return strcasecmp(text.c_str(), word) == 0; }

enum class Section { kStart, kHeader, kData, kEndsec, kEnd, kNone };

Section SectionOf(const std::string& word) {
  if (IsWord(word, "ISO-10303-21") || IsWord(word, "STEP")) return Section::kStart;
  if (IsWord(word, "HEADER")) return Section::kHeader;
  if (IsWord(word, "DATA")) return Section::kData;
  if (IsWord(word, "ENDSEC")) return Section::kEndsec;
  if (IsWord(word, "END-ISO-10303-21") || IsWord(word, "ENDSTEP")) return Section::kEnd;
  return Section::kNone;
}

class Reader {
 public:
  explicit Reader(const ReadCase& toRead) : read_(toRead) {}

  Outcome Run() {
    tokens_.where = "Read";
    if (NextSection() == Section::kStart) {
      ReadSections();
      attributes_.Resolve();
    } else {
      tokens_.Report("Not a STEP file");
    }
    return {static_cast<int>(tokens_.reports.size()), tokens_.reports, Printed()};
  }

 private:
  struct Instance {
    const ReferenceRow& row;
    std::deque<ReferenceValue> values{};
  };

  Section NextSection() {
    for (;;) {
      const int token = tokens_.Next();
      if (token == TOK_EOF) return Section::kNone;
      const Section section = token == TOK_NAME ? SectionOf(tokens_.text) : Section::kNone;
      if (section != Section::kNone) return section;
    }
  }

  void ReadSections() {
    for (Section section = NextSection(); section != Section::kEnd; section = NextSection()) {
      if (section == Section::kData && read_.check && !isListed_)
        return tokens_.Report("Data does not belong to schema 'PROJ'");
      if (section != Section::kHeader && section != Section::kData) {
        tokens_.Report("Missing section");
      } else {
        section = section == Section::kHeader ? ReadHeader() : ReadData();
        if (section != Section::kEndsec) tokens_.Report("Missing ENDSEC");
      }
      if (section == Section::kNone) return;
    }
  }

  Section ReadHeader() {
    for (;;) {
      const int token = tokens_.Next();
      if (token == TOK_EOF) return Section::kNone;
      if (token != TOK_NAME) continue;
      if (SectionOf(tokens_.text) == Section::kEndsec) return Section::kEndsec;
      const char* record = nullptr;
      for (const char* known : {"FILE_DESCRIPTION", "FILE_NAME", "FILE_SCHEMA"}) {
        if (IsWord(tokens_.text, known)) record = known;
      }
      if (record && ReadHeaderRecord(record)) continue;
      tokens_.Report(record ? std::string("Syntax error in: ") + record : "Unknown entity " + tokens_.text);
      tokens_.SkipPastSemicolon();
    }
  }

  // False where its end is not found.
  bool ReadHeaderRecord(const std::string& record) {
    tokens_.where = tokens_.text.substr(0, 63);
    if (tokens_.Next() != TOK_OPEN) return false;
    attributes_.lastToken = kNoToken;
    if (record == "FILE_SCHEMA") {
      ReadSchemaNames();
      if (attributes_.lastToken == TOK_SEMI) return true;
    } else {
      int skipped;
      do {
        skipped = tokens_.Next();
      } while (skipped != TOK_SEMI && skipped != TOK_EOF);
      tokens_.GiveBack(skipped);
    }
    const int token = tokens_.Next();
    return token == TOK_CLOSE || token == TOK_SEMI;
  }

  void ReadSchemaNames() {
    ReferenceValue names;
    attributes_.Read({"", 'T'}, kNoType, names);
    if (!names.items.empty()) isListed_ = false;
    for (const ReferenceItem& name : names.items) isListed_ = isListed_ || IsWord(name.text, "'PROJ'");
  }

  Section ReadData() {
    for (;;) {
      const int token = tokens_.Next();
      if (token == TOK_EOF) return Section::kNone;
      if (token == TOK_NAME) return SectionOf(tokens_.text);
      if (token != TOK_REF) continue;
      const int number = tokens_.integer;
      const bool isNew = attributes_.table.insert({number, kNoPlace}).second;
      if (!isNew) tokens_.Report("Entity #" + std::to_string(number) + " already used");
      if (tokens_.Next() != TOK_EQUAL || tokens_.Next() != TOK_NAME) return Section::kNone;
      tokens_.where = tokens_.text.substr(0, 63);
      if (!ReadRecord(number)) tokens_.SkipPastSemicolon();
    }
  }

  // False where the rest of it is to be skipped.
  bool ReadRecord(int number) {
    const ReferenceRow* row = FindRow(tokens_.text);
    if (!row) return tokens_.Report("Unknown entity " + tokens_.text), false;
    if (!row->isReadable || tokens_.Next() != TOK_OPEN) return tokens_.Report("Syntax"), false;
    attributes_.lastToken = kNoToken;
    attributes_.table[number] = ReadInstance(*row);
    if (attributes_.lastToken == TOK_SEMI) return true;
    const int token = tokens_.Next();
    if (token == TOK_CLOSE) return true;
    tokens_.GiveBack(token);
    tokens_.Report("Syntax");
    return false;
  }

  const ReferenceRow* FindRow(const std::string& name) const {
    for (const ReferenceRow& row : rows_) {
      if (IsWord(name, row.name.c_str())) return &row;
    }
    return nullptr;
  }

  int ReadInstance(const ReferenceRow& row) {
    if (row.type == kProbe && read_.probeMakesNothing) {
      ReferenceValue text;
      attributes_.Read({"", 't'}, kProbe, text);
      return kNoPlace;
    }
    std::deque<ReferenceValue>& values = instances_.emplace_back(Instance{row}).values;
    attributes_.types.push_back(row.type);
    const int place = static_cast<int>(instances_.size());
    for (const Attribute& attribute : row.shape) attributes_.Read(attribute, row.type, values.emplace_back());
    return place;
  }

  Texts Printed() const {
    Texts texts;
    for (const Instance& instance : instances_) {
      std::string text;
      for (const ReferenceValue& value : instance.values) text += (text.empty() ? "" : ",") + ValueText(value);
      texts.push_back(instance.row.name + "(" + text + ")");
    }
    return texts;
  }

  const ReadCase& read_;
  const ReferenceRows rows_ = RowsOf(read_);
  ReferenceTokens tokens_{read_.bytes};
  ReferenceAttributes attributes_{tokens_, rows_};
  bool isListed_ = false;  // PROJ, by FILE_SCHEMA
  std::deque<Instance> instances_;
};

}  // namespace

// It compares and converts by the C library.
Outcome ReadByReference(const ReadCase& read) {
  const PlainHost plain;
  return Reader(read).Run();
}

}  // namespace steprt_test
