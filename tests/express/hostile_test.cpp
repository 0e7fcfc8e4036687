// Texts that ask for more than their length: each ends, in time that grows with the text and not faster. A square of
// any of these sizes would exceed the time limit of the test.
#include <gtest/gtest.h>

#include <functional>

#include "loading.h"

namespace {

using express_test::LoadBody;
using express_test::Loaded;
using express_test::LoadTexts;

constexpr int kMany = 20'000;

std::string Repeated(int count, const std::function<std::string(int)>& piece) {
  std::string text;
  for (int i = 0; i < count; ++i) text += piece(i);
  return text;
}

std::string Number(int i) { return std::to_string(i); }
std::string Times(int count, const std::string& piece) {
  return Repeated(count, [&](int) { return piece; });
}

TEST(Hostile, LongAndDeepTextsAreRead) {
  const std::string open = Times(kMany * 10, "(");
  const std::string close = Times(kMany * 10, ")");
  const struct {
    const char* what;
    std::string body;
  } rows[] = {
      {"remark", "(*" + Times(kMany * 20, " x *") + "*)"},
      {"nested remarks", Times(kMany * 10, "(*") + Times(kMany * 10, "*)")},
      {"brackets", "CONSTANT c : REAL := " + open + "1" + close + "; END_CONSTANT;"},
      {"nested functions", Times(kMany, "FUNCTION f : REAL; ") + Times(kMany, "END_FUNCTION; ")},
      {"blocks", "PROCEDURE p; " + Times(kMany, "IF a THEN ") + Times(kMany, "END_IF; ") + "END_PROCEDURE;"},
      {"entities", Repeated(kMany, [](int i) { return "ENTITY e" + Number(i) + "; a, b : REAL; END_ENTITY;"; })},
      {"items",
       "TYPE t = ENUMERATION OF (a" + Repeated(kMany, [](int i) { return ",e" + Number(i); }) + "); END_TYPE;"},
      {"supertypes", "ENTITY e0; END_ENTITY;" + Repeated(kMany,
                                                         [](int i) {
                                                           return "ENTITY e" + Number(i + 1) + " SUBTYPE OF (e" +
                                                                  Number(i) + "); END_ENTITY;";
                                                         })},
      {"diamonds of supertypes",
       "ENTITY a0; x : REAL; END_ENTITY;" + Repeated(kMany / 3,
                                                     [](int i) {
                                                       const std::string below =
                                                           " SUBTYPE OF (a" + Number(i) + "); END_ENTITY;";
                                                       return "ENTITY b" + Number(i) + below + "ENTITY c" + Number(i) +
                                                              below + "ENTITY a" + Number(i + 1) + " SUBTYPE OF (b" +
                                                              Number(i) + ", c" + Number(i) + "); END_ENTITY;";
                                                     })},
      {"diamonds of selects",
       "TYPE a0 = REAL; END_TYPE;" + Repeated(kMany / 3,
                                              [](int i) {
                                                const std::string one = " = SELECT (a" + Number(i) + "); END_TYPE;";
                                                return "TYPE b" + Number(i) + one + "TYPE c" + Number(i) + one +
                                                       "TYPE a" + Number(i + 1) + " = SELECT (b" + Number(i) + ", c" +
                                                       Number(i) + "); END_TYPE;";
                                              })},
      {"aliases",
       "TYPE t0 = REAL; END_TYPE;" +
           Repeated(kMany, [](int i) { return "TYPE t" + Number(i + 1) + " = t" + Number(i) + "; END_TYPE;"; })},
      {"redeclarations", "ENTITY e0; x : REAL; END_ENTITY;" + Repeated(kMany,
                                                                       [](int i) {
                                                                         return "ENTITY e" + Number(i + 1) +
                                                                                " SUBTYPE OF (e" + Number(i) +
                                                                                "); SELF\\e" + Number(i) +
                                                                                ".x : REAL; END_ENTITY;";
                                                                       })},
  };
  for (const auto& row : rows) EXPECT_EQ(LoadBody(row.body).Messages(), "") << row.what;
}

TEST(Hostile, LongChainsOfSchemasAreFollowed) {
  const std::string last = "SCHEMA s" + Number(kMany) + "; TYPE x = REAL; END_TYPE; END_SCHEMA;";
  for (const char* list : {"", " (x)"}) {
    const Loaded loaded = LoadTexts({Repeated(kMany,
                                              [&](int i) {
                                                return "SCHEMA s" + Number(i) + "; USE FROM s" + Number(i + 1) + list +
                                                       "; TYPE t = x; END_TYPE; END_SCHEMA;";
                                              }) +
                                     last});
    EXPECT_EQ(loaded.Messages(), "") << list;
  }
}

TEST(Hostile, ResultsThatAreLargerThanTheTextAreRefused) {
  const struct {
    const char* what;
    std::string text;
  } rows[] = {
      {"inherited attributes",
       express_test::Schema("ENTITY e0; END_ENTITY;" + Repeated(kMany,
                                                                [](int i) {
                                                                  return "ENTITY e" + Number(i + 1) + " SUBTYPE OF (e" +
                                                                         Number(i) + "); a : REAL; END_ENTITY;";
                                                                }))},
      {"members", express_test::Schema("TYPE t0 = REAL; END_TYPE;" + Repeated(kMany,
                                                                              [](int i) {
                                                                                return "TYPE t" + Number(i + 1) +
                                                                                       " = SELECT (t" + Number(i) +
                                                                                       ", r" + Number(i) +
                                                                                       "); END_TYPE; TYPE r" +
                                                                                       Number(i) + " = REAL; END_TYPE;";
                                                                              }))},
      {"items", express_test::Schema("TYPE t0 = EXTENSIBLE ENUMERATION; END_TYPE;" +
                                     Repeated(kMany,
                                              [](int i) {
                                                return "TYPE t" + Number(i + 1) +
                                                       " = EXTENSIBLE ENUMERATION BASED_ON t" + Number(i) + " WITH (i" +
                                                       Number(i) + "); END_TYPE;";
                                              }))},
      {"names", Repeated(kMany,
                         [](int i) {
                           return "SCHEMA s" + Number(i) + "; USE FROM s" + Number(i + 1) + "; TYPE t = x" + Number(i) +
                                  "; END_TYPE; END_SCHEMA;";
                         }) +
                    "SCHEMA s" + Number(kMany) + ";" +
                    Repeated(kMany, [](int i) { return "TYPE x" + Number(i) + " = REAL; END_TYPE;"; }) + "END_SCHEMA;"},
  };
  for (const auto& row : rows) {
    const Loaded loaded = LoadTexts({row.text});
    ASSERT_EQ(loaded.diagnostics.All().size(), 1U) << row.what;
    EXPECT_EQ(loaded.diagnostics.All()[0].code, express::Code::kTooLarge) << row.what;
  }
}

TEST(Hostile, BrokenTextsEnd) {
  const struct {
    const char* what;
    std::string text;
    std::size_t errors;
  } rows[] = {
      {"open remarks", Times(kMany * 10, "(*"), 2},
      {"open brackets", "SCHEMA s; CONSTANT c : REAL := " + Times(kMany * 10, "["), 3},
      {"open functions", "SCHEMA s; " + Times(kMany, "FUNCTION f : REAL; "), 2},
      {"deep constraint", express_test::Schema("ENTITY e SUPERTYPE OF (" + Times(kMany * 10, "(") + "; END_ENTITY;"),
       1},
      {"deep type", express_test::Schema("TYPE t = " + Times(kMany * 10, "LIST OF ") + "; END_TYPE;"), 1},
      {"ends", Times(kMany, "END_TYPE;"), 1},
      {"bad characters", Times(kMany, "$ "), 100},
      {"unknown names",
       express_test::Schema(
           Repeated(kMany, [](int i) { return "TYPE t" + Number(i) + " = x" + Number(i) + "; END_TYPE;"; })),
       100},
      {"ring of supertypes",
       express_test::Schema(Repeated(kMany,
                                     [](int i) {
                                       return "ENTITY e" + Number(i) + " SUBTYPE OF (e" + Number((i + 1) % kMany) +
                                              "); END_ENTITY;";
                                     })),
       1},
      {"ring of types",
       express_test::Schema(Repeated(
           kMany, [](int i) { return "TYPE t" + Number(i) + " = t" + Number((i + 1) % kMany) + "; END_TYPE;"; })),
       1},
      {"ring of selects",
       express_test::Schema(Repeated(
           kMany,
           [](int i) { return "TYPE t" + Number(i) + " = SELECT (t" + Number((i + 1) % kMany) + "); END_TYPE;"; })),
       1},
  };
  for (const auto& row : rows) EXPECT_EQ(LoadTexts({row.text}).diagnostics.Errors(), row.errors) << row.what;
}

}  // namespace
