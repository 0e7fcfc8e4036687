#include "whole/reference/generator.h"

#include <random>
#include <string_view>

#include "support/mutator.h"
#include "support/table.h"

namespace steprt_test {
namespace {

constexpr const char* kSchemas[] = {"('OTHER')", "('a','proj')", "('PROJ')", "()", "$"};
constexpr const char* kSeparators[] = {"", "", "", "", " ", " ", "\n", "\r\n", "\t"};
constexpr const char* kSelects[] = {"3", "1.5", "'s'", "$"};
constexpr const char* kEntities[] = {"PROBE", "WALL", "DOOR", "SAMPLE", "NOTE", "PRODUCT", "POINT", "PERSON"};
constexpr int kTypes[] = {kProbe, kWall, kDoor, kSample, kNote, kProduct, kPoint, kPerson};

// The kinds of attributes, and what each takes; references are made by chance.
constexpr std::string_view kKinds = "tirblesfaApPENTX";
const Texts kSound = ItemsOf(
    "'tx' & 5 & 2.5 & .T. & .U. & .Green. & $ & $ & () & () & (1,$,2.5) & (1,$,2.5) & (.RED.,.BLUE.,$) & "
    "(.RED.,.BLUE.,$) & ('a','b''c') & ('a','b''c')");

STEPheader* TakeTextAndMakeNothing(STEPtransfer* t) {
  rSTEPtext(t, "A");
  return nullptr;
}

class Generator {
 public:
  explicit Generator(unsigned seed) : random_(seed) {}

  ReadCase Make() {
    Probe probe;
    for (int i = Below(7); i > 0; --i) probe.kinds += Kind();
    constexpr int kExpected[] = {-1, -1, kProduct, kWall, kDoor, kPerson, kProbe, 999};
    probe.expected = Pick(kExpected);
    read_.check = OneIn(3);
    read_.probeMakesNothing = OneIn(10);
    if (read_.probeMakesNothing) probe.read = TakeTextAndMakeNothing;
    SetProbe(probe);
    if (!OneIn(3)) read_.atMost = 1 + Below(40);
    read_.bytes = OneIn(40) ? Words(Below(30)) : File();
    if (OneIn(4) && !read_.bytes.empty()) read_.bytes = Mutated({read_.bytes}, static_cast<unsigned>(random_()));
    if (OneIn(32)) PushToBlockEdge();
    return read_;
  }

 private:
  int Below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }
  bool OneIn(int count) { return Below(count) == 0; }
  template <typename Choice, int kCount>
  Choice Pick(const Choice (&choices)[kCount]) {
    return choices[Below(kCount)];
  }

  char Kind() { return kKinds[random_() % kKinds.size()]; }

  std::string Word() {
    const int kind = Below(40);
    if (kind == 0) return std::string(1, static_cast<char>(Below(256)));
    if (kind == 1) return LongWord();
    if (kind == 2) return LongText();
    if (kind > 4) return HostileWords()[random_() % HostileWords().size()];
    std::string number;
    for (int i = Below(24); i >= 0; --i) number += "0123456789.eE+-"[Below(OneIn(3) ? 15 : 11)];
    return number;
  }

  // About as long as can be kept.
  std::string LongWord() {
    const std::string word(static_cast<std::size_t>(250 + Below(12)), OneIn(2) ? 'A' : '1');
    return OneIn(2) ? word : "#" + word;
  }

  std::string LongText() {
    std::string text(static_cast<std::size_t>(250 + Below(12)), 'x');
    if (OneIn(3)) text[static_cast<std::size_t>(Below(250))] = '\r';
    if (OneIn(3)) text.insert(static_cast<std::size_t>(Below(250)), "''");
    return "'" + text + (OneIn(6) ? "\n" : OneIn(6) ? "" : "'");
  }

  std::string Words(int count) {
    std::string words;
    for (; count > 0; --count) words += Word() + Pick(kSeparators);
    return words;
  }

  std::string Number() { return "#" + std::to_string(Below(10)); }

  std::string References() {
    std::string list = "(";
    for (int i = Below(4); i > 0; --i) list += (OneIn(6) ? "$" : Number()) + (i > 1 ? "," : "") + Pick(kSeparators);
    return list + ")";
  }

  std::string Sound(char kind) {
    if (kind == 't' && OneIn(20)) return LongText();
    if (kind == 'f' || (kind == 's' && OneIn(2))) return Number();
    if (kind == 's') return Pick(kSelects);
    return kind == 'a' || kind == 'A' ? References() : kSound[kKinds.find(kind)];
  }

  // Now and then what an attribute of another kind takes.
  std::string Value(char kind) {
    if (OneIn(16)) return Word();
    return Sound(OneIn(16) ? Kind() : kind);
  }

  std::string Record(int entity) {
    std::string record = Number() + "=" + (OneIn(20) ? "OTHER" : kEntities[entity]) + "(";
    bool isFirst = true;
    for (const Attribute& attribute : ShapeOf(kTypes[entity])) {
      if (!isFirst && !OneIn(20)) record += ",";
      isFirst = false;
      record += Pick(kSeparators) + Value(attribute.kind);
      if (OneIn(25)) record += Pick(kSeparators) + Word();
    }
    return record + (OneIn(20) ? "" : ")") + (OneIn(20) ? "" : ";") + Pick(kSeparators);
  }

  std::string Header() {
    const std::string header = "HEADER;FILE_DESCRIPTION(('a'),'1');FILE_NAME('x','y');";
    std::string schemas;
    for (int i = Below(3); i > 0; --i) schemas += "FILE_SCHEMA(" + std::string(Pick(kSchemas)) + ");";
    return header + schemas + (OneIn(4) ? Words(Below(10)) : "") + "ENDSEC;";
  }

  std::string Data() {
    std::string data = "DATA;";
    for (int i = Below(14); i > 0; --i) {
      data += Record(OneIn(2) ? 0 : Below(8));
      if (OneIn(15)) data += Word() + Pick(kSeparators);
    }
    return data + (OneIn(10) ? "" : "ENDSEC;");
  }

  std::string File() {
    std::string file = OneIn(20) ? "" : "ISO-10303-21;";
    if (!OneIn(10)) file += Header();
    file += Data();
    if (OneIn(8)) file += Header() + Data();
    if (OneIn(6)) file += Words(Below(20));
    return file + (OneIn(8) ? "" : "END-ISO-10303-21;");
  }

  // Blanks in front, so that the block which the library reads at a time ends within the file.
  void PushToBlockEdge() {
    constexpr int kBlock = 1 << 16;
    std::string blanks(static_cast<std::size_t>(kBlock - Below(300)), ' ');
    for (std::size_t at = 0; at < blanks.size(); at += 40) blanks[at] = '\n';
    read_.bytes = blanks + read_.bytes;
    read_.atMost = 2 * kBlock;
  }

  std::mt19937 random_;
  ReadCase read_;
};

}  // namespace

ReadCase MakeReadCase(unsigned seed) { return Generator(seed).Make(); }

}  // namespace steprt_test
