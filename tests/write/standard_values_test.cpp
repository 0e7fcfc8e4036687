// Every attribute writer in a standard file, byte for byte.
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstring>
#include <random>

#include "steprt/encoding.h"
#include "support/number_parse.h"
#include "support/number_print.h"
#include "support/proj_schema.h"
#include "support/repeat.h"
#include "support/table.h"
#include "support/temp_files.h"
#include "write/wide_text.h"

namespace {

using namespace steprt_test;

using Writer = std::function<void(STEPtransfer*)>;

struct Written {
  std::string values;  // of the only record
  Texts reports;
};

Written WriteValues(const Writer& write) {
  ProjModel model;
  new Entity(kProbe);
  SetProbe({"", -1, {}, write});
  const std::string path = TempPath("standard-values.stp");
  EXPECT_EQ(model.WriteStandard(path.c_str()), 1);
  const std::string bytes = BytesOf(path);
  const std::string start = "DATA;\n#1=PROBE(";
  const std::size_t from = bytes.find(start) + start.size();
  return {bytes.substr(from, bytes.rfind(");\nENDSEC;\nEND-ISO-10303-21;\n") - from), TakeReports(path)};
}

std::string ValuesOf(const Writer& write) {
  const Written written = WriteValues(write);
  EXPECT_EQ(written.reports, Texts());
  return written.values;
}

struct Row {
  Writer write;
  std::string values;
};

void ExpectRows(const std::vector<Row>& rows) {
  for (const Row& row : rows) EXPECT_EQ(ValuesOf(row.write), row.values);
}

TEST(StandardValues, NumbersAndKeywords) {
  static const char* names[] = {".left.", ".RIGHT."};
  ExpectRows(
      {{[](STEPtransfer* t) { wSTEPint(t, "a", INT_MIN), wSTEPint(t, nullptr, 0), wSTEPint(t, "c", INT_MAX); },
        "-2147483648,0,2147483647"},
       {[](STEPtransfer* t) { wSTEPbool(t, "a", true), wSTEPbool(t, "b", false); }, ".T.,.F."},
       {[](STEPtransfer* t) {
          for (const int value : {-1, 0, 1, 2}) wSTEPlog(t, "a", value);
        },
        ".U.,.F.,.T.,.U."},
       {[](STEPtransfer* t) { wSTEPenum(t, "a", 0, names), wSTEPenum(t, "b", 1, names); }, ".LEFT.,.RIGHT."},
       {[](STEPtransfer* t) { wSTEPtoken(t, "a", "*"), wSTEPtoken(t, "b", nullptr), wSTEPtoken(t, "c", "\"0A\""); },
        "*,$,\"0A\""},
       {[](STEPtransfer*) {}, ""}});
}

TEST(StandardValues, RealsHaveAPointAndAllDigits) {
  const struct {
    double real;
    const char* text;
  } rows[] = {{0.0, "0."},
              {-0.0, "-0."},
              {1.0, "1."},
              {-2.5, "-2.5"},
              {0.1, "0.1"},
              {1.0 / 3.0, "0.3333333333333333"},
              {1234567.0, "1234567."},
              {123456.789012, "123456.789012"},
              {999999999999999.0, "999999999999999."},
              {1e15, "1.E+15"},
              {1.5e300, "1.5E+300"},
              {1e-4, "0.0001"},
              {9.9e-5, "9.9E-05"},
              {1e-7, "1.E-07"},
              {-1.25e-10, "-1.25E-10"},
              {1.7976931348623157e308, "1.7976931348623157E+308"},
              {4.9406564584124654e-324, "5.E-324"}};
  for (const auto& row : rows) {
    EXPECT_EQ(ValuesOf([&](STEPtransfer* t) { wSTEPreal(t, "a", row.real), wSTEPint(t, "b", 7); }),
              row.text + std::string(",7"));
  }
}

// Any bits, and decimals of a few digits, come back as they were.
TEST(StandardValues, RealsComeBackAsTheSameDouble) {
  std::mt19937_64 random(21);
  for (int i = 0; i < 200'000; ++i) {
    double real = std::ldexp(static_cast<double>(random() % 100'000), static_cast<int>(random() % 80) - 40);
    const std::uint64_t bits = random();
    if (i % 2 == 0) std::memcpy(&real, &bits, sizeof real);
    if (!std::isfinite(real)) continue;
    char text[steprt::kExactRealBuffer + 1] = "";
    char* const end = steprt::ExactRealToText(text, real);
    ASSERT_LE(end, text + steprt::kExactRealBuffer);
    *end = '\0';
    const char* point = std::strchr(text, '.');
    ASSERT_TRUE(point && point != text && std::isdigit(static_cast<unsigned char>(point[-1]))) << text;
    const double back = steprt::TextToReal(text);
    ASSERT_EQ(std::memcmp(&back, &real, sizeof real), 0) << text;
  }
}

TEST(StandardValues, RealsThatAreNotFiniteAreReported) {
  for (const double real : {HUGE_VAL, -HUGE_VAL, std::nan("")}) {
    const Written written = WriteValues([=](STEPtransfer* t) { wSTEPreal(t, "a", real), wSTEPint(t, "b", 7); });
    EXPECT_EQ(written.values, "$,7");
    EXPECT_EQ(written.reports, Texts{"(9) [PROBE]Real is not finite"});
  }
}

TEST(StandardValues, TextsAreAsciiAndDirectives) {
  for (const Texts& row : Table(R"(
    plain ~ text          | 'plain ~ text'
    it's                  | 'it''s'
    ''                    | ''''''
    C:\temp               | 'C:\\temp'
    C:\\temp              | 'C:\\temp'
    a\                    | 'a\\'
    \X\C4\X\c4            | '\X\C4\X\c4'
    \X\C                  | '\\X\\C'
    \X2\20AC00e9\X0\      | '\X2\20AC00e9\X0\'
    \X2\20AC00e\X0\       | '\\X2\\20AC00e\\X0\\'
    \X2\20AC              | '\\X2\\20AC'
    \X2\\X0\              | '\\X2\\\\X0\\'
    \X4\0001F600\X0\      | '\X4\0001F600\X0\'
    \X4\0001F6000001\X0\  | '\\X4\\0001F6000001\\X0\\'
    \S\D\PB\\S\'          | '\S\D\PB\\S\'''
    \PJ\ \P \S\           | '\\PJ\\ \\P \\S\\'
    \N\ \F\               | '\\N\\ \\F\\'
    \\X\41                | '\\X\\41'
    \xC3\xA4              | '\X\E4'
    \xE2\x82\xAC\xC3\xA4  | '\X2\20AC00E4\X0\'
    \xF0\x9F\x98\x80      | '\X4\0001F600\X0\'
    \xE4\xF6              | '\X\E4\X\F6'
    \xE2\x82              | '\X\E2\X\82'
    \x01a\n\x7F           | '\X\01a\X\0A\X\7F'
  )",
                                2)) {
    EXPECT_EQ(ValuesOf([&](STEPtransfer* t) { wSTEPtext(t, "a", row[0].c_str()); }), row[1]) << row[0];
  }
  ExpectRows({{[](STEPtransfer* t) { wSTEPtext(t, "a", nullptr), wSTEPtext(t, "b", ""); }, "$,''"}});
}

class Sink final : public steprt::TextSink {
 public:
  explicit Sink(std::string& out) : out_(out) {}
  void Put(std::string_view piece) override { out_ += piece; }

 private:
  std::string& out_;
};

// What an encoded text means stays the same, however broken its directives are.
TEST(StandardValues, TextsMeanWhatTheyMeant) {
  std::mt19937 random(5);
  const char* pieces[] = {"\\",     "\\X\\", "\\X2\\", "\\X4\\", "\\X0\\", "\\S\\",   "\\PB\\",
                          "\\PX\\", "E4",    "20AC",   "'",      "X",      "\xC3\xA4"};
  for (int i = 0; i < 20'000; ++i) {
    std::string text;
    for (unsigned n = random() % 8; n > 0; --n) text += pieces[random() % std::size(pieces)];
    std::string written;
    Sink sink(written);
    steprt::PutStandardText(text, sink);
    std::string single;
    for (std::size_t at = 0; at < written.size(); ++at) {
      single += written[at];
      if (written[at] != '\'') continue;
      ASSERT_EQ(written[++at], '\'') << text;
    }
    steprt::TextFaults faults;
    ASSERT_EQ(steprt::DecodeText(single, &faults), steprt::DecodeText(text)) << text;
    ASSERT_EQ(faults.malformed, 0u) << text;
  }
}

// A million bytes of each kind take no more than a moment.
TEST(StandardValues, LongTextsTakeTimeOfTheirLength) {
  for (const auto& [piece, written] : std::vector<std::pair<std::string, std::string>>{
           {"'", "''"}, {"\\", "\\\\"}, {"\xE4", "\\X\\E4"}, {"\\X2\\", "\\\\X2\\\\"}, {"\xC3\xA4", "\\X\\E4"}}) {
    const std::string text = Repeat(piece == "\\" ? 1'000'000 : 200'000, piece);
    const std::string values = ValuesOf([&](STEPtransfer* t) { wSTEPtext(t, "a", text.c_str()); });
    const int count = piece == "\\" ? 500'000 : 200'000;  // two backslashes are one already
    EXPECT_EQ(values, "\n'" + Repeat(count, written == "\\\\" ? "\\\\" : written) + "'\n") << piece;
  }
}

TEST(StandardValues, ListsAreOmittedOrEmptyOrHaveTheirMembers) {
  STEPaggr empty;
  STEPaggr reals;
  reals.Append(1.0);
  reals.Append(2.5);
  STEPaggr enumerators;
  enumerators.head = new STEPlist;
  enumerators.head->value.integer = 2;
  STEPaggr texts;
  texts.head = new STEPlist;
  texts.head->next = new STEPlist;
  char text[] = "it's";
  texts.head->value.text = text;
  ExpectRows({{[&](STEPtransfer* t) {
                 xwSTEPaggr(t, "a", nullptr), xwSTEPaggrPrim(t, "b", nullptr);
                 xwSTEPaggrEnum(t, nullptr, kColours), xwSTEPtextAggr(t, "d", nullptr);
               },
               "$,$,$,$"},
              {[&](STEPtransfer* t) {
                 xwSTEPaggr(t, "a", &empty), xwSTEPaggrPrim(t, "b", &empty);
                 xwSTEPaggrEnum(t, &empty, kColours), xwSTEPtextAggr(t, "d", &empty);
               },
               "(),(),(),()"},
              {[&](STEPtransfer* t) {
                 xwSTEPaggrPrim(t, "b", &reals);
                 xwSTEPaggrEnum(t, &enumerators, kColours), xwSTEPtextAggr(t, "d", &texts);
               },
               "(1.,2.5),(.BLUE.),('it''s',$)"}});
  for (STEPaggr* each : {&reals, &enumerators, &texts}) DeleteSTEPlist(&each->head);
}

TEST(StandardValues, SelectsAndItems) {
  STEPselect select;
  const auto write = [&](STEPtransfer* t) {
    wSTEPsel(t, "a", nullptr);
    wSTEPsel(t, "b", &select);
    select.SetInt(5);
    wSTEPsel(t, "c", &select);
    select.SetReal(5);
    wSTEPsel(t, "d", &select);
    select.SetSTEPobj(nullptr);
    wSTEPsel(t, "e", &select);
    wSTEPopen(t, "f", "Label");
    wSTEPtext(t, nullptr, "x");
    wSTEPopen(t, nullptr, nullptr);
    wSTEPclose(t);
    wSTEPopen(t, nullptr, nullptr);
    wSTEPreal(t, nullptr, 3);  // and the library closes what is open
  };
  ExpectRows({{write, "$,$,5,5.,$,LABEL('x',(),(3.))"}});
}

// A line ends before the token that it has no place for. No token is broken.
TEST(StandardValues, LinesEndBetweenTokensBeforeColumn72) {
  const auto write = [](STEPtransfer* t) {
    for (int i = 0; i < 500; ++i) {
      wSTEPtext(t, "a", std::string(static_cast<std::size_t>(i % 90), '\'').c_str());
      wSTEPopen(t, "b", i % 7 == 0 ? "TYPED_VALUE" : nullptr);
      for (int n = 0; n < i % 11; ++n) wSTEPint(t, nullptr, i * n * n * n);
      wSTEPclose(t);
      wSTEPenum(t, "c", i % 3, kColours);
    }
  };
  std::string expected;
  for (int i = 0; i < 500; ++i) {
    expected += (i ? ",'" : "'") + std::string(static_cast<std::size_t>(i % 90) * 2, '\'') + "',";
    expected += i % 7 == 0 ? "TYPED_VALUE(" : "(";
    for (int n = 0; n < i % 11; ++n) expected += (n ? "," : "") + std::to_string(i * n * n * n);
    expected += std::string("),") + kColours[i % 3];
  }
  const std::string values = "#1=PROBE(" + ValuesOf(write);
  std::string joined;
  std::size_t longest = 0;
  for (std::size_t at = 0; at < values.size();) {
    const std::size_t end = std::min(values.find('\n', at), values.size());
    const std::string line = values.substr(at, end - at);
    if (line.size() <= 72) {
      longest = std::max(longest, line.size());
    } else {
      EXPECT_EQ(line.find_first_not_of('\''), std::string::npos) << line;
    }
    joined += line;
    at = end + 1;
  }
  EXPECT_EQ(joined, "#1=PROBE(" + expected);
  EXPECT_EQ(longest, 72u);
}

}  // namespace
