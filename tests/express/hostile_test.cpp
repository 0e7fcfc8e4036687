// Texts that ask for more than their length: each ends, in time that grows with the text and not faster. A square of
// any of these sizes would exceed the time limit of the test.
#include <gtest/gtest.h>

#include "loading.h"
#include "support/repeat.h"

namespace {

using express_test::LoadBody;
using express_test::Loaded;
using express_test::LoadTexts;
using express_test::Schema;
using steprt_test::Repeat;

constexpr int kMany = 20'000;

// Declarations, each of which refers to the one before it.
std::string Chain(const std::string& first, const std::string& each, int count = kMany) {
  return first + " " + Repeat(count, each);
}

TEST(Hostile, LongAndDeepTextsAreRead) {
  const struct {
    const char* what;
    std::string body;
  } rows[] = {
      {"remark", "(*" + Repeat(kMany * 20, " x *") + "*)"},
      {"nested remarks", Repeat(kMany * 10, "(*") + Repeat(kMany * 10, "*)")},
      {"brackets",
       "CONSTANT c : REAL := " + Repeat(kMany * 10, "(") + "1" + Repeat(kMany * 10, ")") + "; END_CONSTANT;"},
      {"nested functions", Repeat(kMany, "FUNCTION f : REAL; ") + Repeat(kMany, "END_FUNCTION; ")},
      {"blocks", "PROCEDURE p; " + Repeat(kMany, "IF a THEN ") + Repeat(kMany, "END_IF; ") + "END_PROCEDURE;"},
      {"entities", Repeat(kMany, "ENTITY e@; a, b : REAL; END_ENTITY;")},
      {"items", "TYPE t = ENUMERATION OF (a" + Repeat(kMany, ",e@") + "); END_TYPE;"},
      {"supertypes", Chain("ENTITY e0; END_ENTITY;", "ENTITY e^ SUBTYPE OF (e@); END_ENTITY;")},
      {"diamonds of supertypes", Chain("ENTITY a0; x : REAL; END_ENTITY;",
                                       "ENTITY b@ SUBTYPE OF (a@); END_ENTITY; ENTITY c@ SUBTYPE OF (a@); END_ENTITY;"
                                       "ENTITY a^ SUBTYPE OF (b@, c@); END_ENTITY;",
                                       kMany / 3)},
      {"diamonds of selects",
       Chain("TYPE a0 = REAL; END_TYPE;",
             "TYPE b@ = SELECT (a@); END_TYPE; TYPE c@ = SELECT (a@); END_TYPE; TYPE a^ = SELECT (b@, c@); END_TYPE;",
             kMany / 3)},
      {"aliases", Chain("TYPE t0 = REAL; END_TYPE;", "TYPE t^ = t@; END_TYPE;")},
      {"redeclarations",
       Chain("ENTITY e0; x : REAL; END_ENTITY;", "ENTITY e^ SUBTYPE OF (e@); SELF\\e@.x : REAL; END_ENTITY;")},
  };
  for (const auto& row : rows) EXPECT_EQ(LoadBody(row.body).Messages(), "") << row.what;
}

TEST(Hostile, LongChainsOfSchemasAreFollowed) {
  const std::string last = "SCHEMA s" + std::to_string(kMany) + "; TYPE x = REAL; END_TYPE; END_SCHEMA;";
  for (const std::string list : {"", " (x)"}) {
    const std::string each = "SCHEMA s@; USE FROM s^" + list + "; TYPE t = x; END_TYPE; END_SCHEMA;";
    const Loaded loaded = LoadTexts({Repeat(kMany, each) + last});
    EXPECT_EQ(loaded.Messages(), "") << list;
  }
}

TEST(Hostile, ResultsThatAreLargerThanTheTextAreRefused) {
  const struct {
    const char* what;
    std::string text;
  } rows[] = {
      {"inherited attributes",
       Schema(Chain("ENTITY e0; END_ENTITY;", "ENTITY e^ SUBTYPE OF (e@); a : REAL; END_ENTITY;"))},
      {"members",
       Schema(Chain("TYPE t0 = REAL; END_TYPE;", "TYPE t^ = SELECT (t@, r@); END_TYPE; TYPE r@ = REAL; END_TYPE;"))},
      {"items", Schema(Chain("TYPE t0 = EXTENSIBLE ENUMERATION; END_TYPE;",
                             "TYPE t^ = EXTENSIBLE ENUMERATION BASED_ON t@ WITH (i@); END_TYPE;"))},
      {"names", Repeat(kMany, "SCHEMA s@; USE FROM s^; TYPE t = x@; END_TYPE; END_SCHEMA;") + "SCHEMA s" +
                    std::to_string(kMany) + ";" + Repeat(kMany, "TYPE x@ = REAL; END_TYPE;") + "END_SCHEMA;"},
  };
  for (const auto& row : rows) {
    const Loaded loaded = LoadTexts({row.text});
    ASSERT_EQ(loaded.diagnostics.All().size(), 1U) << row.what;
    EXPECT_EQ(loaded.diagnostics.All()[0].code, express::Code::kTooLarge) << row.what;
  }
}

TEST(Hostile, BrokenTextsEnd) {
  const std::string last = std::to_string(kMany);
  const struct {
    const char* what;
    std::string text;
    std::size_t errors;
  } rows[] = {
      {"open remarks", Repeat(kMany * 10, "(*"), 2},
      {"open brackets", "SCHEMA s; CONSTANT c : REAL := " + Repeat(kMany * 10, "["), 3},
      {"open functions", "SCHEMA s; " + Repeat(kMany, "FUNCTION f : REAL; "), 2},
      {"deep constraint", Schema("ENTITY e SUPERTYPE OF (" + Repeat(kMany * 10, "(") + "; END_ENTITY;"), 1},
      {"deep type", Schema("TYPE t = " + Repeat(kMany * 10, "LIST OF ") + "; END_TYPE;"), 1},
      {"ends", Repeat(kMany, "END_TYPE;"), 1},
      {"bad characters", Repeat(kMany, "$ "), 100},
      {"unknown names", Schema(Repeat(kMany, "TYPE t@ = x@; END_TYPE;")), 100},
      {"ring of supertypes",
       Schema(Chain("ENTITY e0 SUBTYPE OF (e" + last + "); END_ENTITY;", "ENTITY e^ SUBTYPE OF (e@); END_ENTITY;")), 1},
      {"ring of types", Schema(Chain("TYPE t0 = t" + last + "; END_TYPE;", "TYPE t^ = t@; END_TYPE;")), 1},
      {"ring of selects",
       Schema(Chain("TYPE t0 = SELECT (t" + last + "); END_TYPE;", "TYPE t^ = SELECT (t@); END_TYPE;")), 1},
  };
  for (const auto& row : rows) EXPECT_EQ(LoadTexts({row.text}).diagnostics.Errors(), row.errors) << row.what;
}

}  // namespace
