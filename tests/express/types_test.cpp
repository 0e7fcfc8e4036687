// Types where they are used, enumerations and selects.
#include <gtest/gtest.h>

#include "loading.h"

namespace {

using express_test::ExpectRefusals;
using express_test::Items;
using express_test::LoadBody;
using express_test::Loaded;
using express_test::Members;
using express_test::TypeText;

TEST(Types, AreReadWithBoundsAndWidths) {
  const struct {
    const char* type;
    const char* read;
  } rows[] = {
      {"REAL", "REAL"},
      {"real ( 12 )", "REAL(12=12)"},
      {"STRING (n + 1) FIXED", "STRING(n + 1=?) FIXED"},
      {"LIST OF INTEGER", "LIST OF INTEGER"},
      {"LIST [0:?] OF UNIQUE e", "LIST [0=0 : ?=open] OF UNIQUE e"},
      {"SET [+1:-2] OF t", "SET [+1=1 : -2=-2] OF t"},
      {"BAG [9223372036854775807:9223372036854775808] OF NUMBER",
       "BAG [9223372036854775807=9223372036854775807 : 9223372036854775808=?] OF NUMBER"},
      {"ARRAY [f(a[1:2], {1}):(0)] OF BOOLEAN", "ARRAY [f(a[1:2], {1})=? : (0)=?] OF BOOLEAN"},
      {"ARRAY [1:2] OF OPTIONAL UNIQUE ARRAY [3 : 4] OF OPTIONAL LOGICAL",
       "ARRAY [1=1 : 2=2] OF OPTIONAL UNIQUE ARRAY [3=3 : 4=4] OF OPTIONAL LOGICAL"},
  };
  for (const auto& row : rows) {
    const Loaded loaded =
        LoadBody(std::string("ENTITY e; END_ENTITY; TYPE t = BINARY; END_TYPE; TYPE x = ") + row.type + "; END_TYPE;");
    EXPECT_EQ(loaded.Messages(), "") << row.type;
    EXPECT_EQ(TypeText(*loaded.TypeOf("x").underlying), row.read);
  }
}

TEST(Types, RingsAreCut) {
  ExpectRefusals({
      {"TYPE a = a; END_TYPE;", "2:10 expected a type that does not consist of 'a', 'a' does [type-ring]\n"},
      {"TYPE a = b; END_TYPE; TYPE b = LIST OF c; END_TYPE; TYPE c = SET OF a; END_TYPE;",
       "2:69 expected a type that does not consist of 'c', 'a' does [type-ring]\n"},
      {"TYPE a = EXTENSIBLE SELECT BASED_ON b; END_TYPE; TYPE b = EXTENSIBLE SELECT BASED_ON a; END_TYPE;",
       "2:86 expected a type that does not consist of 'b', 'a' does [type-ring]\n"},
      {"TYPE a = SELECT (a); END_TYPE;", "2:18 expected a member that is not made of 'a', 'a' is [select-ring]\n"},
      {"TYPE a = SELECT (b); END_TYPE; TYPE b = c; END_TYPE; TYPE c = SELECT (a); END_TYPE;",
       "2:71 expected a member that is not made of 'c', 'a' is [select-ring]\n"},
      {"TYPE a = EXTENSIBLE SELECT; END_TYPE; TYPE b = SELECT BASED_ON a WITH (a); END_TYPE;",
       "2:72 expected a member that is not made of 'a', 'a' is [select-ring]\n"},
      // A list can be empty, so a value has an end.
      {"TYPE a = SELECT (b, r); END_TYPE; TYPE b = LIST OF a; END_TYPE; TYPE r = REAL; END_TYPE;", ""},
  });
}

TEST(Selects, AreFlattenedWithBasesAndExtensions) {
  const Loaded loaded = LoadBody(R"(
    ENTITY e; END_ENTITY; ENTITY f; END_ENTITY; ENTITY g; END_ENTITY; ENTITY h; END_ENTITY;
    TYPE r = REAL; END_TYPE;
    TYPE list_of_inner = LIST OF inner; END_TYPE;
    TYPE outer = SELECT (inner_again, f, list_of_inner, e); END_TYPE;
    TYPE inner = SELECT (e, r); END_TYPE;
    TYPE inner_again = inner; END_TYPE;
    TYPE base = EXTENSIBLE SELECT (e); END_TYPE;
    TYPE middle = EXTENSIBLE SELECT BASED_ON base WITH (f); END_TYPE;
    TYPE last = SELECT BASED_ON middle WITH (g, e); END_TYPE;
    TYPE side = SELECT BASED_ON base WITH (h); END_TYPE;
    TYPE around = SELECT (middle, r); END_TYPE;)");
  EXPECT_EQ(loaded.Messages(), "");
  const struct {
    const char* select;
    const char* members;
  } rows[] = {{"inner", "e r"},     {"outer", "e r f list_of_inner"},
              {"base", "e f h g"},  {"middle", "e f g"},
              {"last", "e f g"},    {"side", "e h"},
              {"around", "e f g r"}};
  for (const auto& row : rows) EXPECT_EQ(Members(loaded.TypeOf(row.select)), row.members) << row.select;
}

TEST(Enumerations, HaveTheItemsOfBasesAndExtensions) {
  const Loaded loaded = LoadBody(R"(
    TYPE base = EXTENSIBLE ENUMERATION OF (One, two); END_TYPE;
    TYPE middle = EXTENSIBLE ENUMERATION BASED_ON base WITH (three); END_TYPE;
    TYPE last = ENUMERATION BASED_ON middle WITH (four, ONE); END_TYPE;
    TYPE side = ENUMERATION BASED_ON base WITH (three, five); END_TYPE;
    TYPE same = ENUMERATION BASED_ON base; END_TYPE;)");
  EXPECT_EQ(loaded.Messages(), "");
  const struct {
    const char* enumeration;
    const char* items;
  } rows[] = {{"base", "One two three five four"},
              {"middle", "One two three four"},
              {"last", "One two three four"},
              {"side", "One two three five"},
              {"same", "One two"}};
  for (const auto& row : rows) EXPECT_EQ(Items(loaded.TypeOf(row.enumeration)), row.items) << row.enumeration;
}

TEST(Types, WrongNamesAreReported) {
  ExpectRefusals({
      {"TYPE a = ENUMERATION OF (x, y, X); END_TYPE;",
       "2:32 expected another name, 'X' is an item already [duplicate-name]\n"},
      {"TYPE a = LIST OF b; END_TYPE;", "2:18 expected a name of this schema, none is called 'b' [unknown-name]\n"},
      {"TYPE a = SELECT (f); END_TYPE; FUNCTION f : REAL; RETURN (1); END_FUNCTION;",
       "2:18 expected a type or an entity, 'f' is neither [wrong-kind]\n2:41 it is declared here\n"},
      {"ENTITY e; END_ENTITY; TYPE a = SELECT BASED_ON e; END_TYPE;",
       "2:48 expected a defined type, 'e' is none [wrong-kind]\n2:8 it is declared here\n"},
      {"TYPE a = SELECT (a1); END_TYPE; TYPE a1 = REAL; END_TYPE; TYPE b = SELECT BASED_ON a; END_TYPE;",
       "2:84 expected an extensible select, 'a' is none [not-extensible]\n2:6 it is declared here\n"},
      {"TYPE a = EXTENSIBLE SELECT; END_TYPE; TYPE b = ENUMERATION BASED_ON a; END_TYPE;",
       "2:69 expected an extensible enumeration, 'a' is none [not-extensible]\n2:6 it is declared here\n"},
      {"FUNCTION f (x, y : LIST OF a) : b; RETURN (1); END_FUNCTION; CONSTANT c : d := 1; END_CONSTANT;",
       "2:28 expected a name of this schema, none is called 'a' [unknown-name]\n"
       "2:33 expected a name of this schema, none is called 'b' [unknown-name]\n"
       "2:75 expected a name of this schema, none is called 'd' [unknown-name]\n"},
      {"RULE r FOR (t); WHERE TRUE; END_RULE; TYPE t = REAL; END_TYPE;",
       "2:13 expected an entity, 't' is none [wrong-kind]\n2:44 it is declared here\n"},
  });
}

}  // namespace
