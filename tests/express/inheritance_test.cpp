// Supertypes, the slots that an entity has from them, redeclarations and constraints on subtypes.
#include <gtest/gtest.h>

#include "loading.h"

namespace {

using express_test::ConstraintText;
using express_test::ExpectRefusals;
using express_test::LoadBody;
using express_test::Loaded;
using express_test::Slots;

std::string EntityText(const std::string& name, const std::string& supertypes, const std::string& body) {
  return "ENTITY " + name + (supertypes.empty() ? "" : " SUBTYPE OF (" + supertypes + ")") + "; " + body +
         " END_ENTITY; ";
}

// e has the attributes p and q, f and g are subtypes of it, and h is one of both.
TEST(Slots, AreThoseOfEachSupertypeOnceWithTheLastRedeclaration) {
  const struct {
    const char* f;
    const char* g;
    const char* h;
    const char* slots;
  } rows[] = {
      {"", "", "", "e.p e.q"},
      {"a : REAL;", "b : REAL;", "c : REAL;", "e.p e.q f.a g.b h.c"},
      {"a : REAL; DERIVE d : REAL := 1; INVERSE i : e FOR q;", "", "", "e.p e.q f.a"},
      {"SELF\\e.p : INTEGER;", "", "", "e.p>f.p e.q"},
      {"", "SELF\\e.p : INTEGER;", "", "e.p>g.p e.q"},
      {"", "", "SELF\\e.p : INTEGER;", "e.p>h.p e.q"},
      {"SELF\\e.p : INTEGER;", "", "SELF\\f.p : INTEGER;", "e.p>h.p e.q"},
      {"SELF\\e.p RENAMED r : INTEGER;", "", "SELF\\f.r RENAMED s : INTEGER;", "e.p>h.s e.q"},
      {"SELF\\e.p RENAMED r : INTEGER;", "", "p : REAL;", "e.p>f.r e.q h.p"},
      // Neither of two refines the other: the one of the first supertype stays.
      {"SELF\\e.p : INTEGER;", "SELF\\e.p : INTEGER;", "", "e.p>f.p e.q"},
      {"", "DERIVE SELF\\e.q : e := ?;", "", "e.p e.q>g.q*"},
      {"DERIVE SELF\\e.q : e := ?;", "SELF\\e.q : f;", "", "e.p e.q>f.q*"},
      {"SELF\\e.q : f;", "DERIVE SELF\\e.q : e := ?;", "", "e.p e.q>f.q*"},
      // Through an entity that only inherits the attribute.
      {"", "", "SELF\\f.p : INTEGER;", "e.p>h.p e.q"},
  };
  for (const auto& row : rows) {
    const Loaded loaded = LoadBody(EntityText("h", "f, g", row.h) + EntityText("g", "e", row.g) +
                                   EntityText("f", "e", row.f) + EntityText("e", "", "p : NUMBER; q : e;"));
    EXPECT_EQ(loaded.Messages(), "") << row.f << row.g << row.h;
    EXPECT_EQ(Slots(loaded.EntityOf("h")), row.slots) << row.f << row.g << row.h;
  }
}

TEST(Slots, ADerivedOrInverseAttributeIsRedeclaredWithoutOne) {
  const Loaded loaded =
      LoadBody(EntityText("e", "", "r : e; DERIVE d : NUMBER := 1; INVERSE i : SET OF e FOR r;") +
               EntityText("f", "e",
                          "DERIVE SELF\\e.d : REAL := 1; INVERSE SELF\\e.i RENAMED j : SET [1:?] OF e "
                          "FOR e.r;"));
  EXPECT_EQ(loaded.Messages(), "");
  const express::Entity& f = loaded.EntityOf("f");
  EXPECT_EQ(Slots(f), "e.r");
  const express::Entity& e = loaded.EntityOf("e");
  EXPECT_EQ(f.attributes[0].root, &e.attributes[1]);
  EXPECT_EQ(f.attributesByName.at("j")->redeclared, &e.attributes[2]);
  EXPECT_EQ(f.attributes[1].inverse.target, &e.attributes[0]);
}

TEST(Inheritance, WhatContradictsIsReported) {
  ExpectRefusals({
      {"ENTITY a SUBTYPE OF (a); END_ENTITY;",
       "2:22 expected a supertype of 'a', 'a' is a subtype of it or the entity itself [supertype-ring]\n"},
      {"ENTITY a SUBTYPE OF (b); END_ENTITY; ENTITY b SUBTYPE OF (c, a); END_ENTITY; ENTITY c; END_ENTITY;",
       "2:62 expected a supertype of 'b', 'a' is a subtype of it or the entity itself [supertype-ring]\n"},
      {"ENTITY a SUBTYPE OF (b, B); END_ENTITY; ENTITY b; x : REAL; END_ENTITY;",
       "2:25 expected another supertype, 'B' is in this list already [duplicate-name]\n"},
      {"ENTITY a; x, X : REAL; END_ENTITY;",
       "2:14 expected another name, 'X' is an attribute of this entity already [duplicate-name]\n"
       "2:11 the first one is here\n"},
      {"ENTITY a; END_ENTITY; ENTITY b SUBTYPE OF (a); SELF\\a.x : REAL; END_ENTITY;",
       "2:55 expected an attribute of 'a', none is called 'x' [unknown-attribute]\n"
       "2:8 the entity is declared here\n"},
      {"ENTITY a; x : REAL; END_ENTITY; ENTITY b; SELF\\a.x : REAL; END_ENTITY;",
       "2:48 expected a supertype of 'b', 'a' is none [not-supertype]\n"},
      {"ENTITY a; SELF\\a.x : REAL; END_ENTITY;", "2:16 expected a supertype of 'a', 'a' is none [not-supertype]\n"},
      {"ENTITY a; DERIVE x : REAL := 1; END_ENTITY; ENTITY b SUBTYPE OF (a); SELF\\a.x : REAL; END_ENTITY;",
       "2:77 expected an attribute of the same kind, or an explicit one to derive: 'x' is neither [wrong-kind]\n"
       "2:18 it is declared here\n"},
      {"ENTITY a; x : REAL; INVERSE y : a FOR z; z : b FOR x; w : a FOR b.x; END_ENTITY; ENTITY b; END_ENTITY;",
       "2:52 expected an attribute of 'b', none is called 'x' [unknown-attribute]\n2:89 the entity is declared here\n"
       "2:67 expected an attribute of 'b', none is called 'x' [unknown-attribute]\n2:89 the entity is declared here\n"},
      {"ENTITY a SUBTYPE OF (t); SELF\\t.x : REAL; END_ENTITY; TYPE t = REAL; END_TYPE;",
       "2:22 expected an entity, 't' is none [wrong-kind]\n2:60 it is declared here\n"
       "2:31 expected an entity, 't' is none [wrong-kind]\n2:60 it is declared here\n"},
      // A supertype that is missing may have the attribute.
      {"ENTITY a SUBTYPE OF (m); END_ENTITY; ENTITY b SUBTYPE OF (a); SELF\\a.x : REAL; END_ENTITY;",
       "2:22 expected a name of this schema, none is called 'm' [unknown-name]\n"},
  });
}

TEST(Constraints, AreTreesOfSubtypes) {
  const struct {
    const char* written;
    const char* tree;  // null: not a subtype is reported
  } rows[] = {
      {"b", "b"},
      {"b AND c ANDOR c AND b AND d", "((b AND c) ANDOR (c AND b AND d))"},
      {"b ANDOR c ANDOR d", "(b ANDOR c ANDOR d)"},
      {"b AND (c ANDOR d)", "(b AND (c ANDOR d))"},
      {"ONEOF (b, c AND d, ONEOF (c))", "ONEOF(b, (c AND d), ONEOF(c))"},
      {"((b))", "b"},
      {"b ANDOR below_d", "(b ANDOR below_d)"},
      {"b ANDOR other", nullptr},
      {"ONEOF (a, b)", nullptr},
  };
  const std::string entities = EntityText("b", "a", "") + EntityText("c", "a", "") + EntityText("d", "a", "") +
                               EntityText("below_d", "d", "") + EntityText("other", "", "");
  for (const auto& row : rows) {
    const std::string written = row.written;
    const Loaded inHead = LoadBody(entities + "ENTITY a SUPERTYPE OF (" + written + "); END_ENTITY;");
    const Loaded beside = LoadBody(entities + "ENTITY a; END_ENTITY; SUBTYPE_CONSTRAINT k FOR a; " + written +
                                   "; END_SUBTYPE_CONSTRAINT;");
    for (const Loaded* loaded : {&inHead, &beside}) {
      EXPECT_EQ(loaded->diagnostics.Errors(), row.tree == nullptr ? 1U : 0U) << written << loaded->Messages();
      if (row.tree == nullptr) {
        EXPECT_EQ(loaded->diagnostics.All()[0].code, express::Code::kNotSubtype) << written;
      }
    }
    if (row.tree == nullptr) continue;
    EXPECT_EQ(ConstraintText(*inHead.EntityOf("a").constraint), row.tree);
    EXPECT_EQ(ConstraintText(*beside.EntityOf("a").constraints.at(0)->constraint), row.tree);
  }
}

TEST(Entities, AreAbstractByTheirHeadOrByAConstraint) {
  const struct {
    const char* body;
    bool abstract;
  } rows[] = {
      {"ENTITY a; END_ENTITY;", false},
      {"ENTITY a ABSTRACT; END_ENTITY;", true},
      {"ENTITY a ABSTRACT SUPERTYPE; END_ENTITY;", true},
      {"ENTITY a ABSTRACT SUPERTYPE OF (b); END_ENTITY; ENTITY b SUBTYPE OF (a); END_ENTITY;", true},
      {"ENTITY a SUPERTYPE OF (b); END_ENTITY; ENTITY b SUBTYPE OF (a); END_ENTITY;", false},
      {"ENTITY a SUBTYPE OF (b) ABSTRACT SUPERTYPE; END_ENTITY; ENTITY b; END_ENTITY;", true},
      {"ENTITY a; END_ENTITY; SUBTYPE_CONSTRAINT k FOR a; ABSTRACT SUPERTYPE; END_SUBTYPE_CONSTRAINT;", true},
      {"ENTITY a; END_ENTITY; SUBTYPE_CONSTRAINT k FOR a; END_SUBTYPE_CONSTRAINT;", false},
  };
  for (const auto& row : rows) {
    const Loaded loaded = LoadBody(row.body);
    EXPECT_EQ(loaded.Messages(), "") << row.body;
    EXPECT_EQ(loaded.EntityOf("a").abstract, row.abstract) << row.body;
  }
}

}  // namespace
