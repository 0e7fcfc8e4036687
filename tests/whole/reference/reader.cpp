#include "whole/reference/reader.h"

#include <strings.h>

#include <algorithm>
#include <cstring>
#include <deque>
#include <map>
#include <vector>

#include "host/plain_host.h"
#include "whole/reference/tokens.h"

namespace steprt_test {
namespace {

constexpr int kNoPlace = 0;  // of an instance in the model, counted from 1

using Names = std::vector<const char*>;

bool IsWord(const std::string& text, const char* word) { return strcasecmp(text.c_str(), word) == 0; }

// -1 if it is none of them.
int Position(const Names& names, const std::string& text) {
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (IsWord(text, names[i])) return static_cast<int>(i);
  }
  return -1;
}

const APPentity* FindRow(const std::string& name) {
  for (const APPobject0* schema = ProjSchema(); schema; schema = schema->next) {
    for (const APPentity* row = schema->entities; row->name; ++row) {
      if (IsWord(name, row->name)) return row;
    }
  }
  return nullptr;
}

bool IsBelow(int ancestor, const APPentity* row) {
  while (row && row->type != ancestor) row = row->super ? FindRow(row->super) : nullptr;
  return row || ancestor < 0;
}

enum class Section { kStart, kHeader, kData, kEndsec, kEnd, kNone };

Section SectionOf(const std::string& word) {
  constexpr Section kSections[] = {Section::kNone, Section::kStart,  Section::kStart, Section::kHeader,
                                   Section::kData, Section::kEndsec, Section::kEnd,   Section::kEnd};
  return kSections[1 +
                   Position({"ISO-10303-21", "STEP", "HEADER", "DATA", "ENDSEC", "END-ISO-10303-21", "ENDSTEP"}, word)];
}

class Reader : ReferenceTokens {
 public:
  explicit Reader(const ReadCase& toRead) : ReferenceTokens(toRead.bytes), read_(toRead) {}

  Outcome Run() {
    where = "Read";
    if (NextSection() == Section::kStart) {
      ReadSections();
      Resolve();
    } else {
      Report("Not a STEP file");
    }
    return {static_cast<int>(reports.size()), reports, Printed()};
  }

 private:
  // A reference is a piece of its own, which may be known at the end only; pieces stay where they are.
  using Pieces = std::deque<std::string>;

  struct Instance {
    const APPentity* row;
    Pieces pieces{};
  };

  struct Fixup {
    int number;
    int expected;
    std::string* slot;
  };

  // ---- sections and records

  Section NextSection() {
    for (;;) {
      const int token = Next();
      if (token == TOK_EOF) return Section::kNone;
      const Section section = token == TOK_NAME ? SectionOf(text) : Section::kNone;
      if (section != Section::kNone) return section;
    }
  }

  void ReadSections() {
    for (Section section = NextSection(); section != Section::kEnd; section = NextSection()) {
      if (section == Section::kData && read_.check && !isListed_)
        return Report("Data does not belong to schema 'PROJ'");
      if (section != Section::kHeader && section != Section::kData) {
        Report("Missing section");
      } else {
        section = section == Section::kHeader ? ReadHeader() : ReadData();
        if (section != Section::kEndsec) Report("Missing ENDSEC");
      }
      if (section == Section::kNone) return;
    }
  }

  Section ReadHeader() {
    const Names known = {"FILE_DESCRIPTION", "FILE_NAME", "FILE_SCHEMA"};
    for (;;) {
      const int token = Next();
      if (token == TOK_EOF) return Section::kNone;
      if (token != TOK_NAME) continue;
      if (SectionOf(text) == Section::kEndsec) return Section::kEndsec;
      const int record = Position(known, text);
      if (record >= 0 && ReadHeaderRecord(record == 2)) continue;
      Report(record < 0 ? "Unknown entity " + text
                        : std::string("Syntax error in: ") + known[static_cast<std::size_t>(record)]);
      SkipPastSemicolon();
    }
  }

  // False where its end is not found.
  bool ReadHeaderRecord(bool isSchema) {
    where = text.substr(0, 63);
    if (Next() != TOK_OPEN) return false;
    lastToken_ = kNoToken;
    if (!isSchema) return SkipPastSemicolon() == TOK_SEMI;
    Pieces names = {"["};
    ReadItems({"", 'T'}, NextAttribute(), names);
    if (names.size() > 1) isListed_ = false;
    for (const std::string& name : names) isListed_ = isListed_ || IsWord(name, "'PROJ'");
    if (lastToken_ == TOK_SEMI) return true;
    const int token = Next();
    return token == TOK_CLOSE || token == TOK_SEMI;
  }

  Section ReadData() {
    for (;;) {
      const int token = Next();
      if (token == TOK_EOF) return Section::kNone;
      if (token == TOK_NAME) return SectionOf(text);
      if (token != TOK_REF) continue;
      const int number = integer;
      const bool isNew = table_.insert({number, kNoPlace}).second;
      if (!isNew) Report("Entity #" + std::to_string(number) + " already used");
      if (Next() != TOK_EQUAL || Next() != TOK_NAME) return Section::kNone;
      where = text.substr(0, 63);
      if (!ReadRecord(number)) SkipPastSemicolon();
    }
  }

  // False where the rest of it is to be skipped.
  bool ReadRecord(int number) {
    const APPentity* row = FindRow(text);
    if (!row) return Report("Unknown entity " + text), false;
    if (!row->read || Next() != TOK_OPEN) return Report("Syntax"), false;
    lastToken_ = kNoToken;
    table_[number] = ReadInstance(row);
    if (lastToken_ == TOK_SEMI) return true;
    const int token = Next();
    if (token == TOK_CLOSE) return true;
    GiveBack(token);
    Report("Syntax");
    return false;
  }

  int ReadInstance(const APPentity* row) {
    if (row->type == kProbe && read_.probeMakesNothing) return ReadText(), kNoPlace;
    instances_.push_back({row});
    const int place = static_cast<int>(instances_.size());
    for (const Attribute& attribute : ShapeOf(row->type)) {
      if (!instances_.back().pieces.empty()) Put(",");
      ReadAttribute(attribute, row->type == kProbe ? "kept" : "null");
    }
    return place;
  }

  // ---- attributes

  std::string& Put(const std::string& piece) { return instances_.back().pieces.emplace_back(piece); }

  void ReadAttribute(const Attribute& attribute, const char* unset) {
    const char kind = attribute.kind;
    if (kind == 't') Put(ReadText());
    if (kind == 'i' || kind == 'r') Put(ReadNumber(kind == 'r'));
    if (kind == 'b') Put(ReadKeyword({".F.", ".T."}, "bool") ? "T" : "F");
    if (kind == 'l') Put(std::to_string(ReadKeyword({".U.", ".F.", ".T."}, "logical") - 1));
    if (kind == 'e') Put(std::to_string(ReadKeyword(colours_, "enumeration")));
    if (kind == 's') ReadSelect();
    if (kind == 'f') ReadReference(attribute.expected, Put(unset));
    if (std::strchr("aApPENTX", kind)) ReadList(attribute);
  }

  int NextAttribute() {
    if (lastToken_ == TOK_SEMI) return TOK_SEMI;
    int token = Next();
    if (token == TOK_COMMA) token = Next();
    if (token == TOK_SEMI) lastToken_ = TOK_SEMI;
    return token;
  }

  void Skip(int token) {
    if (token == TOK_SEMI) return GiveBack(TOK_SEMI);
    if (token != TOK_OPEN && token != TOK_CLOSE) return;
    int next = Next();
    while (token == TOK_OPEN && next != TOK_CLOSE && next != TOK_SEMI && next != TOK_EOF) next = Next();
    if (next == TOK_SEMI) GiveBack(TOK_SEMI);
  }

  std::string ReadText() {
    const int token = NextAttribute();
    if (token == TOK_TEXT) return Quoted(text);
    if (token == TOK_NULL || token == TOK_SEMI) return "''";
    Report("Missing text");
    Skip(token);
    return "''";
  }

  std::string ReadNumber(bool isReal) {
    const int token = NextAttribute();
    if (token == TOK_INT) return isReal ? RealText(integer) : std::to_string(integer);
    if (token == TOK_REAL && isReal) return RealText(real);
    if (token == TOK_SEMI) return "0";
    Report(isReal ? "Missing real" : "Missing integer");
    GiveBack(token);
    return "0";
  }

  int ReadKeyword(const Names& names, const std::string& kind) {
    const int token = NextAttribute();
    if (token == TOK_NULL || token == TOK_SEMI) return 0;
    const int position = token == TOK_ENUM ? Position(names, text) : -1;
    if (position >= 0) return position;
    Report(token == TOK_ENUM ? "Unknown " + kind + " " + Quoted(text) : "Missing " + kind);
    Skip(token);
    return 0;
  }

  // A number that stands for no instance is null here, and no type is expected.
  void ReadSelect() {
    const int token = NextAttribute();
    if (token == TOK_INT || token == TOK_REAL) {
      Put(token == TOK_INT ? "int " + std::to_string(integer) : "real " + RealText(real));
    } else if (token == TOK_TEXT) {
      Put("text " + Quoted(text));
    } else if (token == TOK_NULL || token == TOK_REF) {
      Put("object ");
      const bool isNothing = token == TOK_REF && IsNothing(integer);
      Settle(isNothing ? TOK_NULL : token, -1, Put("null"));
    } else {
      Put("none");
      if (token == TOK_SEMI) return;
      Skip(token);
      Report("Missing reference");
    }
  }

  void ReadReference(int expected, std::string& slot) {
    const int token = NextAttribute();
    if (token == TOK_NULL || token == TOK_REF) return Settle(token, expected, slot);
    if (token == TOK_SEMI) return;
    Skip(token);
    Report("Missing reference");
  }

  // The kinds P, N and X are p, E and T without a list to put the items in.
  void ReadList(const Attribute& attribute) {
    const int token = NextAttribute();
    const bool isKept = token != TOK_SEMI && !std::strchr("PNX", attribute.kind);
    Pieces dropped;
    Pieces& items = isKept ? instances_.back().pieces : dropped;
    items.push_back("[");
    ReadItems(attribute, token, items);
    Put(isKept ? "]" : "none");
  }

  void ReadItems(const Attribute& attribute, int token, Pieces& items) {
    const bool hasReferences = attribute.kind == 'a' || attribute.kind == 'A';
    const bool hasTexts = attribute.kind == 'T' || attribute.kind == 'X';
    if (token == TOK_SEMI || (token == TOK_NULL && hasReferences)) return;
    if (token == TOK_OPEN) {
      do {
        token = Next();
        if (token == TOK_COMMA) token = Next();
        if (token == TOK_CLOSE) return;
      } while (TakeItem(attribute, token, items));
      Skip(TOK_OPEN);
    }
    Skip(token);
    Report(hasReferences ? "Missing reference" : hasTexts ? "Missing text in list" : "Missing primitive in list");
  }

  bool TakeItem(const Attribute& attribute, int token, Pieces& items) {
    const auto put = [&](const std::string& item) -> std::string& {
      if (items.back() != "[") items.push_back(",");
      return items.emplace_back(item);
    };
    switch (attribute.kind) {
      case 'a':
      case 'A':
        if (token != TOK_REF && (token != TOK_NULL || attribute.kind == 'a')) return false;
        if (token == TOK_REF && IsNothing(integer)) return ReportUnknown(integer), true;  // it is left out
        Settle(token, attribute.expected, put("null"));
        return true;
      case 'E':
      case 'N':
        if (token == TOK_ENUM && Position(colours_, text) < 0) Report("Unknown enumeration " + Quoted(text));
        if (token == TOK_ENUM) put(std::to_string(std::max(0, Position(colours_, text))));
        if (token == TOK_NULL) put("0");
        return token == TOK_ENUM || token == TOK_NULL;
      case 'T':
      case 'X':
        if (token == TOK_TEXT) put(Quoted(text));
        return token == TOK_TEXT;
      default:
        if (token == TOK_NULL) put("0");
        if (token == TOK_INT || token == TOK_REAL) put(RealText(token == TOK_INT ? integer : real));
        return token == TOK_NULL || token == TOK_INT || token == TOK_REAL;
    }
  }

  // ---- references

  // Whether the number has been met, and no instance came of it.
  bool IsNothing(int number) const {
    const auto entry = table_.find(number);
    return entry != table_.end() && entry->second == kNoPlace;
  }

  void ReportUnknown(int number) { Report("Reference to unknown object #" + std::to_string(number)); }

  // A null, or a reference to what has been met or to what may come.
  void Settle(int token, int expected, std::string& slot) {
    if (token == TOK_REF && table_.count(integer) == 0) return fixups_.push_front({integer, expected, &slot});
    slot = "null";
    if (token == TOK_REF) Store({integer, expected, &slot});
  }

  void Store(const Fixup& fixup) {
    const int place = table_.at(fixup.number);
    *fixup.slot = place == kNoPlace ? "null" : "@" + std::to_string(place);
    if (place == kNoPlace) return ReportUnknown(fixup.number);
    if (!IsBelow(fixup.expected, instances_[static_cast<std::size_t>(place) - 1].row))
      Report("Reference to wrong object type ''");
  }

  void Resolve() {
    for (const Fixup& fixup : fixups_) {
      if (table_.count(fixup.number) != 0) {
        Store(fixup);
      } else {
        Report("Unknown reference #" + std::to_string(fixup.number));
      }
    }
  }

  Texts Printed() const {
    Texts texts;
    for (const Instance& instance : instances_) {
      std::string& printed = texts.emplace_back(std::string(instance.row->name) + "(");
      for (const std::string& piece : instance.pieces) printed += piece;
      printed += ")";
    }
    return texts;
  }

  const ReadCase& read_;
  const Names colours_{std::begin(kColours), std::end(kColours)};
  int lastToken_ = kNoToken;
  bool isListed_ = false;     // PROJ, by FILE_SCHEMA
  std::map<int, int> table_;  // places by number
  std::deque<Instance> instances_;
  std::deque<Fixup> fixups_;  // newest first
};

}  // namespace

// It compares and converts by the C library.
Outcome ReadByReference(const ReadCase& read) {
  const PlainHost plain;
  return Reader(read).Run();
}

}  // namespace steprt_test
