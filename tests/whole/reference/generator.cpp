#include "whole/reference/generator.h"

#include <random>

namespace steprt_test {
namespace {

constexpr const char* kWords[] = {"1",
                                  "-12",
                                  "+7",
                                  "2.5",
                                  "1.E3",
                                  ".5",
                                  "#",
                                  "#1",
                                  "#2",
                                  "#3",
                                  "#7",
                                  "#4097",
                                  "#-1",
                                  "#+3",
                                  "#12X",
                                  "#9999999999",
                                  "'a'",
                                  "'it''s'",
                                  "''",
                                  "'",
                                  "'open\n",
                                  "'x\r\ny'",
                                  ".T.",
                                  ".F.",
                                  ".U.",
                                  ".t.",
                                  ".T",
                                  ".RED.",
                                  ".blue.",
                                  ".zz.",
                                  "$",
                                  "*",
                                  "=",
                                  "(",
                                  ")",
                                  ",",
                                  ",,",
                                  ";",
                                  "WALL",
                                  "door",
                                  "PRODUCT",
                                  "OTHER",
                                  "DATA",
                                  "ENDSEC",
                                  "HEADER",
                                  "STEP",
                                  "ENDSTEP",
                                  "ISO-10303-21",
                                  "/*",
                                  "*/",
                                  "!X",
                                  "_A",
                                  "\"x y\"",
                                  "0x1F",
                                  "+inf",
                                  "-nan",
                                  "1e400",
                                  "-1e-400",
                                  "1e5",
                                  "1e",
                                  "1e+",
                                  "1.5.2",
                                  "--5",
                                  "+-5",
                                  ".",
                                  "-.",
                                  "-.5e1",
                                  "2147483648",
                                  "-2147483649",
                                  "99999999999999999999",
                                  "123456789012345678901234567890.5",
                                  "0.1e0000000000005",
                                  "\v5",
                                  "\f",
                                  "\x80",
                                  "A.B-C",
                                  "A*B",
                                  "-",
                                  "+",
                                  "1-2",
                                  "1.7976931348623159e308",
                                  "4.9e-324",
                                  "2.4e-324",
                                  "9007199254740993.",
                                  "0.3",
                                  "1e22",
                                  "1e23",
                                  "8.5e-22",
                                  "FILE_NAME",
                                  "FILE_SCHEMA",
                                  "file_description"};
constexpr const char* kHeaders[] = {"FILE_SCHEMA(('OTHER'));",
                                    "FILE_SCHEMA(('a','proj'));",
                                    "FILE_SCHEMA(());FILE_SCHEMA(('PROJ'));",
                                    "FILE_SCHEMA(('PROJ'));FILE_SCHEMA($);",
                                    "FILE_SCHEMA(('PROJ'));FILE_SCHEMA(('OTHER'));",
                                    ""};
constexpr const char* kSeparators[] = {"", "", "", "", " ", " ", "\n", "\r\n", "\t"};
constexpr char kKinds[] = {'t', 'i', 'r', 'b', 'l', 'e', 's', 'f', 'a', 'A', 'p', 'E', 'T', 'P', 'N', 'X'};
constexpr const char* kSelects[] = {"3", "1.5", "'s'", "$"};

class Generator {
 public:
  explicit Generator(unsigned seed) : random_(seed) {}

  ReadCase Make() {
    for (int i = Below(7); i > 0; --i) read_.kinds += Pick(kKinds);
    constexpr int kExpected[] = {kNoType, kNoType, kProduct, kWall, kDoor, kPerson, kProbe, 999};
    read_.expected = Pick(kExpected);
    read_.check = OneIn(3);
    read_.probeMakesNothing = OneIn(10);
    if (!OneIn(3)) read_.atMost = 1 + Below(40);
    read_.bytes = OneIn(40) ? Words(Below(30)) : File();
    if (OneIn(4)) Damage(read_.bytes);
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

  std::string Word() {
    const int kind = Below(40);
    if (kind == 0) return std::string(1, static_cast<char>(Below(256)));
    if (kind == 1) return LongWord();
    if (kind == 2) return LongText();
    if (kind > 4) return Pick(kWords);
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

  // What an attribute of this kind takes.
  std::string Sound(char kind) {
    switch (kind) {
      case 't':
        return OneIn(20) ? LongText() : "'tx'";
      case 'i':
        return "5";
      case 'r':
        return "2.5";
      case 'b':
        return ".T.";
      case 'l':
        return ".U.";
      case 'e':
        return ".Green.";
      case 's':
        return OneIn(2) ? Number() : Pick(kSelects);
      case 'f':
        return Number();
      case 'a':
      case 'A':
        return References();
      case 'E':
      case 'N':
        return "(.RED.,.BLUE.,$)";
      case 'T':
      case 'X':
        return "('a','b''c')";
      default:
        return "(1,$,2.5)";
    }
  }

  // Now and then what an attribute of another kind takes.
  std::string Value(char kind) {
    if (OneIn(16)) return Word();
    return Sound(OneIn(16) ? Pick(kKinds) : kind);
  }

  std::string Record(const ReferenceRow& row) {
    std::string record = Number() + "=" + (OneIn(20) ? "OTHER" : row.name) + "(";
    bool isFirst = true;
    for (const Attribute& attribute : row.shape) {
      if (!isFirst && !OneIn(20)) record += ",";
      isFirst = false;
      record += Pick(kSeparators) + Value(attribute.kind);
      if (OneIn(25)) record += Pick(kSeparators) + Word();
    }
    return record + (OneIn(20) ? "" : ")") + (OneIn(20) ? "" : ";") + Pick(kSeparators);
  }

  std::string Header() {
    const std::string header = "HEADER;FILE_DESCRIPTION(('a'),'1');FILE_NAME('x','y');";
    return header + Pick(kHeaders) + (OneIn(4) ? Words(Below(10)) : "") + "ENDSEC;";
  }

  std::string Data() {
    const ReferenceRows rows = RowsOf(read_);
    const ReferenceRow& probe = rows[4];
    std::string data = "DATA;";
    for (int i = Below(14); i > 0; --i) {
      data += Record(OneIn(2) ? probe : rows[static_cast<std::size_t>(Below(8))]);
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

  void Damage(std::string& file) {
    for (int i = Below(4); i >= 0 && !file.empty(); --i) {
      const auto at = static_cast<std::size_t>(Below(static_cast<int>(file.size())));
      const int how = Below(5);
      if (how == 0) file.erase(at, static_cast<std::size_t>(1 + Below(5)));
      if (how == 1) file.insert(at, Word());
      if (how == 2) file[at] = static_cast<char>(Below(256));
      if (how == 3) file.insert(at, Pick(kSeparators));
      if (how == 4 && OneIn(4)) file.resize(at);
    }
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
