// USE and REFERENCE: what a name means in the schema that interfaces another.
#include <gtest/gtest.h>

#include "loading.h"

namespace {

using express_test::Loaded;
using express_test::LoadTexts;
using express_test::Slots;

std::string SchemaOf(const std::string& name, const std::string& body) {
  return "SCHEMA " + name + "; " + body + " END_SCHEMA; ";
}

constexpr const char* kEntity = "ENTITY x; p : REAL; END_ENTITY;";

// Schema a has an entity that is a subtype of `name`; b and c are the others, and x is declared in c.
TEST(Interfaces, ANameIsFoundThroughThem) {
  const struct {
    const char* a;  // interfaces of a
    const char* name;
    const char* b;  // interfaces of b
    bool found;
  } rows[] = {
      {"USE FROM c;", "x", "", true},
      {"REFERENCE FROM c;", "X", "", true},
      {"USE FROM c (x);", "x", "", true},
      {"REFERENCE FROM c (x AS y);", "y", "", true},
      {"REFERENCE FROM c (x AS y);", "x", "", false},
      {"USE FROM c (y AS x);", "x", "", false},
      // What b uses, a sees through it; what b references, it does not.
      {"USE FROM b;", "x", "USE FROM c;", true},
      {"USE FROM b;", "x", "USE FROM c (x);", true},
      {"USE FROM b;", "y", "USE FROM c (x AS y);", true},
      {"USE FROM b (y AS z);", "z", "USE FROM c (x AS y);", true},
      {"USE FROM b (x);", "x", "USE FROM c;", true},
      {"REFERENCE FROM b;", "x", "USE FROM c;", true},
      {"USE FROM b;", "x", "REFERENCE FROM c;", false},
      {"USE FROM b;", "x", "REFERENCE FROM c (x);", false},
      {"USE FROM b (x);", "x", "REFERENCE FROM c (x);", false},
      {"USE FROM b;", "x", "REFERENCE FROM c (x); USE FROM c (x);", true},
      {"USE FROM b;", "x", "REFERENCE FROM c; USE FROM c;", true},
      // Rings of schemas are allowed.
      {"USE FROM b;", "x", "USE FROM a; USE FROM c;", true},
      {"USE FROM b;", "x", "USE FROM a;", false},
      {"USE FROM b (x);", "x", "USE FROM a (x);", false},
  };
  for (const auto& row : rows) {
    const std::string subtype = std::string("ENTITY e SUBTYPE OF (") + row.name + "); END_ENTITY;";
    const Loaded loaded = LoadTexts({SchemaOf("a", row.a + subtype), SchemaOf("b", row.b), SchemaOf("c", kEntity)});
    EXPECT_EQ(loaded.diagnostics.Errors() == 0, row.found) << row.a << row.b << "\n" << loaded.Messages();
    EXPECT_EQ(Slots(loaded.EntityOf("e")), row.found ? "x.p" : "") << row.a << row.b;
  }
}

TEST(Interfaces, EveryKindOfDeclarationCanBeListed) {
  const Loaded loaded = LoadTexts(
      {"SCHEMA a; REFERENCE FROM b (k, t, e, f, p, r, c); ENTITY x SUBTYPE OF (e); y : t; END_ENTITY; END_SCHEMA;",
       "SCHEMA b; CONSTANT k : REAL := 1; END_CONSTANT; TYPE t = REAL; END_TYPE; ENTITY e; END_ENTITY; "
       "SUBTYPE_CONSTRAINT c FOR e; ABSTRACT SUPERTYPE; END_SUBTYPE_CONSTRAINT; FUNCTION f : REAL; RETURN (1); "
       "END_FUNCTION; PROCEDURE p; SKIP; END_PROCEDURE; RULE r FOR (e); WHERE TRUE; END_RULE; END_SCHEMA;"});
  EXPECT_EQ(loaded.Messages(), "");
  for (const char* name : {"K", "t", "e", "f", "p", "r", "c"}) EXPECT_NE(loaded.model->Find("A")->Find(name), nullptr);
  EXPECT_EQ(loaded.model->Find("a")->Find("x1"), nullptr);
  EXPECT_EQ(loaded.model->Find("c"), nullptr);
}

TEST(Interfaces, WhatIsMissingOrTakenIsReported) {
  const struct {
    const char* a;
    const char* messages;
  } rows[] = {
      // What a missing schema may declare is not reported once more.
      {"USE FROM z; REFERENCE FROM y (u AS v); ENTITY e SUBTYPE OF (v); q : w; END_ENTITY;",
       "a:1:20 expected a schema of these files, none is called 'z' [unknown-schema]\n"
       "a:1:38 expected a schema of these files, none is called 'y' [unknown-schema]\n"},
      {"REFERENCE FROM y (u); ENTITY e; q : w; END_ENTITY;",
       "a:1:26 expected a schema of these files, none is called 'y' [unknown-schema]\n"
       "a:1:47 expected a name of this schema, none is called 'w' [unknown-name]\n"},
      {"USE FROM b (x, y);", "a:1:26 expected a declaration that 'b' passes on, none is called 'y' [unknown-name]\n"},
      {"USE FROM b (x); ENTITY x; END_ENTITY;",
       "a:1:23 expected another name, 'x' is taken in this schema [duplicate-name]\na:1:34 the first one is here\n"},
      {"USE FROM b (x AS y); USE FROM c (x AS Y);",
       "a:1:49 expected another name, 'Y' is taken in this schema [duplicate-name]\na:1:28 the first one is here\n"},
      {"USE FROM b (x); REFERENCE FROM b (x);", ""},
      {"ENTITY e; END_ENTITY; TYPE E = REAL; END_TYPE;",
       "a:1:38 expected another name, 'E' is taken in this schema [duplicate-name]\na:1:18 the first one is here\n"},
  };
  for (const auto& row : rows) {
    const Loaded loaded = LoadTexts({SchemaOf("a", row.a), SchemaOf("b", kEntity), SchemaOf("c", kEntity)});
    EXPECT_EQ(loaded.Messages(), row.messages) << row.a;
  }
  EXPECT_EQ(LoadTexts({SchemaOf("a", ""), SchemaOf("A", "")}).Messages(),
            "b:1:8 expected one schema 'A' in all files [duplicate-name]\na:1:8 the first one is here\n");
}

}  // namespace
