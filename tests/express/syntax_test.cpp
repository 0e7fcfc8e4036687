// What the grammar refuses: what was expected, and where reading goes on.
#include <gtest/gtest.h>

#include "loading.h"

namespace {

using express_test::ExpectRefusals;
using express_test::LoadBody;
using express_test::Loaded;
using express_test::LoadTexts;
using express_test::Refusal;

TEST(Syntax, OutsideOfSchemasOnlySchemasAreExpected) {
  const std::vector<Refusal> rows = {
      {"", "1:1 expected SCHEMA, found the end of the file [syntax]\n"},
      {"SCHEMA s; END_SCHEMA; x; SCHEMA t; END_SCHEMA; ;",
       "1:23 expected SCHEMA, found 'x' [syntax]\n1:48 expected SCHEMA, found ';' [syntax]\n"},
      {"SCHEMA 1; END_SCHEMA;", "1:8 expected the name of the schema, found '1' [syntax]\n"},
      {"SCHEMA s \"00000041\"; END_SCHEMA;", ""},
      {"SCHEMA s 1; END_SCHEMA;", "1:10 expected a string, an encoded string or ';', found '1' [syntax]\n"},
      {"SCHEMA s; SCHEMA t; END_SCHEMA;", "1:11 expected END_SCHEMA, found the reserved word 'SCHEMA' [syntax]\n"},
      {"SCHEMA s; x",
       "1:11 expected a declaration or END_SCHEMA, found 'x' [syntax]\n"
       "1:12 expected END_SCHEMA, found the end of the file [syntax]\n"},
  };
  for (const Refusal& row : rows) EXPECT_EQ(LoadTexts({row.body}).Messages(), row.messages) << row.body;
}

TEST(Syntax, DeclarationsOfTypes) {
  ExpectRefusals({
      {"TYPE = REAL; END_TYPE;", "2:6 expected the name of a type, found '=' [syntax]\n"},
      {"TYPE list = REAL; END_TYPE;", "2:6 expected the name of a type, found the reserved word 'list' [syntax]\n"},
      {"TYPE a REAL; END_TYPE;", "2:8 expected '=', found the reserved word 'REAL' [syntax]\n"},
      {"TYPE a = ; END_TYPE;", "2:10 expected ENUMERATION, SELECT or a type, found ';' [syntax]\n"},
      {"TYPE a = REAL END_TYPE;", "2:15 expected '(' or ';', found the reserved word 'END_TYPE' [syntax]\n"},
      {"TYPE a = REAL; x : 1; END_TYPE;", "2:16 expected WHERE or END_TYPE, found 'x' [syntax]\n"},
      {"TYPE a = REAL; DERIVE INVERSE x; END_TYPE;",
       "2:16 expected WHERE or END_TYPE, found the reserved word 'DERIVE' [syntax]\n"
       "2:23 expected WHERE or END_TYPE, found the reserved word 'INVERSE' [syntax]\n"},
      {"TYPE a = REAL; WHERE END_TYPE;", "2:22 expected an expression, found the reserved word 'END_TYPE' [syntax]\n"},
      {"TYPE a = REAL; WHERE w : ; v : TRUE; u : (; END_TYPE;",
       "2:26 expected an expression, found ';' [syntax]\n2:43 expected ')', found ';' [syntax]\n"},
      {"TYPE a = LIST [1] OF REAL; END_TYPE;", "2:17 expected ':', found ']' [syntax]\n"},
      {"TYPE a = LIST [1:2 OF REAL; END_TYPE;", "2:20 expected ']', found the reserved word 'OF' [syntax]\n"},
      {"TYPE a = LIST [:] OF REAL; END_TYPE;", "2:16 expected an expression, found ':' [syntax]\n"},
      {"TYPE a = BAG OF UNIQUE REAL; END_TYPE;", "2:17 expected a type, found the reserved word 'UNIQUE' [syntax]\n"},
      {"TYPE a = REAL (1) FIXED; END_TYPE;", "2:19 expected ';', found the reserved word 'FIXED' [syntax]\n"},
      {"TYPE a = ENUMERATION; END_TYPE;", "2:21 expected BASED_ON or OF, found ';' [syntax]\n"},
      {"TYPE a = ENUMERATION OF (x y); END_TYPE;", "2:28 expected ',' or ')', found 'y' [syntax]\n"},
      {"TYPE a = SELECT; END_TYPE;", "2:16 expected BASED_ON or '(', found ';' [syntax]\n"},
      {"TYPE a = EXTENSIBLE REAL; END_TYPE;",
       "2:21 expected GENERIC_ENTITY, ENUMERATION or SELECT, found the reserved word 'REAL' [syntax]\n"},
      {"TYPE a = EXTENSIBLE GENERIC_ENTITY ENUMERATION; END_TYPE;",
       "2:36 expected SELECT, found the reserved word 'ENUMERATION' [syntax]\n"},
      {"TYPE extensible = extensible; END_TYPE;",
       "2:19 expected a type that does not consist of 'extensible', 'extensible' does [type-ring]\n"},
  });
}

TEST(Syntax, DeclarationsOfEntities) {
  ExpectRefusals({
      {"ENTITY e END_ENTITY;",
       "2:10 expected SUBTYPE, ABSTRACT, SUPERTYPE or ';', found the reserved word 'END_ENTITY' [syntax]\n"},
      {"ENTITY e SUPERTYPE; END_ENTITY;", "2:19 expected OF or '(', found ';' [syntax]\n"},
      {"ENTITY e; x; y : REAL END_ENTITY;",
       "2:12 expected ',' or ':', found ';' [syntax]\n"
       "2:23 expected '(' or ';', found the reserved word 'END_ENTITY' [syntax]\n"},
      {"ENTITY e; x : REAL; ENTITY f; END_ENTITY;",
       "2:21 expected DERIVE, INVERSE, UNIQUE, WHERE or END_ENTITY, found the reserved word 'ENTITY' [syntax]\n"},
      {"ENTITY e; x : REAL; END_TYPE; ENTITY f SUBTYPE OF (e); END_ENTITY;",
       "2:21 expected DERIVE, INVERSE, UNIQUE, WHERE or END_ENTITY, found the reserved word 'END_TYPE' [syntax]\n"},
      {"ENTITY e; SELF\\e : REAL; END_ENTITY;", "2:18 expected '.', found ':' [syntax]\n"},
      {"ENTITY e; DERIVE x : REAL; y : REAL := 1 z : REAL := 2; END_ENTITY;",
       "2:26 expected '(' or ':=', found ';' [syntax]\n2:44 expected ';', found ':' [syntax]\n"},
      {"ENTITY e; WHERE TRUE; DERIVE x : REAL := 1; END_ENTITY;",
       "2:23 expected END_ENTITY, found the reserved word 'DERIVE' [syntax]\n"},
      {"ENTITY e; INVERSE x : LIST OF e FOR y; END_ENTITY;",
       "2:23 expected SET, BAG or the name of an entity, found the reserved word 'LIST' [syntax]\n"},
      {"ENTITY e; x : e; UNIQUE x, ; END_ENTITY;",
       "2:28 expected SELF or the name of an attribute, found ';' [syntax]\n"},
      {"ENTITY e SUPERTYPE OF (ONEOF e); END_ENTITY;", "2:30 expected '(', found 'e' [syntax]\n"},
      {"ENTITY e SUPERTYPE OF (e OR e); END_ENTITY;",
       "2:26 expected AND, ANDOR or ')', found the reserved word 'OR' [syntax]\n"},
      {"SUBTYPE_CONSTRAINT c FOR e; ABSTRACT; END_SUBTYPE_CONSTRAINT; ENTITY e; END_ENTITY;",
       "2:37 expected SUPERTYPE, found ';' [syntax]\n"},
      {"ENTITY e; subtype_constraint : REAL; END_ENTITY;", ""},
  });
}

TEST(Syntax, InterfacesAndConstants) {
  ExpectRefusals({
      {"USE s;", "2:5 expected FROM, found 's' [syntax]\n"},
      {"USE FROM s (x AS); TYPE x = REAL; END_TYPE;", "2:17 expected a new name, found ')' [syntax]\n"},
      {"REFERENCE FROM s (x y); TYPE x = REAL; END_TYPE;", "2:21 expected AS, ',' or ')', found 'y' [syntax]\n"},
      {"CONSTANT a : REAL = 1; b : REAL := 2; END_CONSTANT;", "2:19 expected '(' or ':=', found '=' [syntax]\n"},
      {"CONSTANT a : REAL := 1; TYPE t = a; END_TYPE;",
       "2:25 expected END_CONSTANT, found the reserved word 'TYPE' [syntax]\n"
       "2:34 expected a type or an entity, 'a' is neither [wrong-kind]\n2:10 it is declared here\n"},
      {"CONSTANT a : REAL := (1]; b : REAL := [1); c : REAL := 1); d : REAL := {1; END_CONSTANT;",
       "2:24 expected ')', found ']' [syntax]\n2:41 expected ']', found ')' [syntax]\n"
       "2:57 expected ';', found ')' [syntax]\n2:74 expected '}', found ';' [syntax]\n"},
  });
}

TEST(Syntax, BodiesMatchTheirBlocks) {
  ExpectRefusals({
      {"FUNCTION f : REAL; IF a THEN b; END_FUNCTION; x",
       "2:33 expected END_IF, found the reserved word 'END_FUNCTION' [syntax]\n"
       "2:47 expected a declaration or END_SCHEMA, found 'x' [syntax]\n"},
      {"FUNCTION f : REAL; IF a THEN b; END_CASE; END_IF; END_FUNCTION;",
       "2:33 expected END_IF, found the reserved word 'END_CASE' [syntax]\n"},
      {"FUNCTION f : REAL; FUNCTION g : REAL; END_IF; END_FUNCTION; END; END_FUNCTION; TYPE x = f; END_TYPE;",
       "2:39 expected END_FUNCTION, found the reserved word 'END_IF' [syntax]\n"
       "2:89 expected a type or an entity, 'f' is neither [wrong-kind]\n2:10 it is declared here\n"},
      {"FUNCTION f : REAL; a := (1; b := 2); END_FUNCTION;", "2:27 expected ')', found ';' [syntax]\n"},
      {"FUNCTION f : REAL; PROCEDURE g (VAR a : REAL; b : REAL); END_PROCEDURE; END_FUNCTION;", ""},
      {"FUNCTION f : REAL; FUNCTION g (a : REAL; b : SET [(1;2):3] OF REAL) : REAL; END_FUNCTION; END_FUNCTION;",
       "2:53 expected ')', found ';' [syntax]\n"},
      {"FUNCTION f (a : REAL; b) : REAL; IF x; END_FUNCTION; y",
       "2:24 expected ',' or ':', found ')' [syntax]\n"
       "2:54 expected a declaration or END_SCHEMA, found 'y' [syntax]\n"},
      {"FUNCTION f; END_FUNCTION;", "2:11 expected '(' or ':', found ';' [syntax]\n"},
      {"PROCEDURE p; END_FUNCTION; TYPE t = REAL; END_TYPE;",
       "2:14 expected END_PROCEDURE, found the reserved word 'END_FUNCTION' [syntax]\n"},
      {"RULE r FOR (e); FUNCTION f : REAL; END_RULE; ENTITY e; END_ENTITY;",
       "2:36 expected END_FUNCTION, found the reserved word 'END_RULE' [syntax]\n"},
      {"FUNCTION f : REAL; RETURN (1); TYPE t = REAL; END_TYPE;",
       "3:1 expected END_FUNCTION, found the reserved word 'END_SCHEMA' [syntax]\n"},
  });
}

// Several faults are reported at once, with those of names, and what is sound is kept.
TEST(Syntax, ReadingGoesOnAfterErrors) {
  const Loaded loaded = LoadBody(
      "ENTITY a; x REAL; y : unknown; END_ENTITY;\nTYPE t = ; END_TYPE;\nENTITY b SUBTYPE OF (a);"
      " z : t; END_ENTITY;");
  EXPECT_EQ(loaded.Messages(),
            "2:13 expected ',' or ':', found the reserved word 'REAL' [syntax]\n"
            "3:10 expected ENUMERATION, SELECT or a type, found ';' [syntax]\n"
            "2:23 expected a name of this schema, none is called 'unknown' [unknown-name]\n");
  EXPECT_EQ(express_test::Slots(loaded.EntityOf("b")), "a.y b.z");
}

TEST(Syntax, ReadingStopsAtTheLimitOfErrors) {
  express::Limits limits;
  limits.errors = 3;
  const Loaded loaded = LoadBody("ENTITY a; x; y; z; w; END_ENTITY; TYPE t = u; END_TYPE;", limits);
  EXPECT_EQ(loaded.Messages(),
            "2:12 expected ',' or ':', found ';' [syntax]\n2:15 expected ',' or ':', found ';' [syntax]\n"
            "2:18 expected ',' or ':', found ';' [syntax]\n"
            "2:18 too many errors, the rest is not looked at [too-many-errors]\n");
}

TEST(Syntax, NestingHasALimit) {
  express::Limits limits;
  limits.depth = 3;
  ExpectRefusals(
      {
          {"TYPE t = LIST OF LIST OF LIST OF REAL; END_TYPE;", ""},
          {"TYPE t = LIST OF LIST OF LIST OF LIST OF REAL; END_TYPE;",
           "2:34 expected at most 3 aggregates, each of the next [too-deep]\n"},
          {"ENTITY a SUPERTYPE OF (((ONEOF (b)))); END_ENTITY; ENTITY b SUBTYPE OF (a); END_ENTITY;", ""},
          {"ENTITY a SUPERTYPE OF ((((ONEOF (b))))); END_ENTITY; ENTITY b SUBTYPE OF (a); END_ENTITY;",
           "2:34 expected at most 3 nested brackets [too-deep]\n"},
          {"CONSTANT c : REAL := ((((((((1)))))))); END_CONSTANT;", ""},
      },
      limits);
}

}  // namespace
