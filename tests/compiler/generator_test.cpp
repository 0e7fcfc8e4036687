// What the generator prints, as texts.
#include <gmock/gmock.h>

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <sstream>

#include "express/cpp/generate.h"
#include "express/cpp/names.h"
#include "express/load.h"

namespace {

using namespace express;
using cpp::File;
using cpp::Options;
using testing::HasSubstr;
using testing::Not;

std::string Content(const std::string& path) {
  std::ostringstream text;
  text << std::ifstream(path, std::ios::binary).rdbuf();
  return text.str();
}

struct Generated {
  Diagnostics diagnostics;
  std::unique_ptr<Model> model;
  std::vector<File> files;

  std::string Messages() const {
    std::string all;
    for (const Diagnostic& diagnostic : diagnostics.All()) all += diagnostic.message + '\n';
    return all;
  }
};

Generated GenerateFrom(const std::string& text, const Options& options = {}) {
  Generated result;
  std::vector<std::unique_ptr<Source>> sources;
  sources.push_back(std::make_unique<Source>("schema", text));
  result.model = Load(std::move(sources), result.diagnostics);
  if (result.diagnostics.Errors() == 0) result.files = Generate(*result.model, options, result.diagnostics);
  return result;
}

// Every construct of EXPRESS, and names that are awkward in C++. With STEPRT_ACCEPT=1 in the environment what comes out
// becomes what is expected.
TEST(Generator, PrintsTheExpectedFiles) {
  Options options;
  options.parts = 1;
  options.module = true;
  for (const std::string schema : {STEPRT_TEST_SCHEMAS "/every_construct.exp", STEPRT_TEST_GOLDEN "/awkward.exp"}) {
    const Generated generated = GenerateFrom(Content(schema), options);
    EXPECT_EQ(generated.Messages(), "");
    ASSERT_EQ(generated.files.size(), 4U);
    for (const File& file : generated.files) {
      const std::string expected = STEPRT_TEST_GOLDEN "/golden/" + file.name + ".txt";
      if (std::getenv("STEPRT_ACCEPT")) std::ofstream(expected, std::ios::binary) << file.text;
      EXPECT_EQ(file.text, Content(expected)) << expected;
    }
  }
}

TEST(Generator, TakesOnlyTheEntitiesThatAreNamedAndWhatTheyNeed) {
  const std::string schema =
      "SCHEMA s; TYPE pick = SELECT (c, text); END_TYPE; TYPE text = STRING; END_TYPE;"
      "TYPE kind = ENUMERATION OF (one); END_TYPE; TYPE other = ENUMERATION OF (two); END_TYPE;"
      "ENTITY a; x : LIST OF pick; END_ENTITY; ENTITY b SUBTYPE OF (a); y : kind; END_ENTITY;"
      "ENTITY c; END_ENTITY; ENTITY d SUBTYPE OF (b); z : other; END_ENTITY; ENTITY e; c1 : c; END_ENTITY; END_SCHEMA;";
  Options options;
  options.entities = {"B"};
  const Generated generated = GenerateFrom(schema, options);
  EXPECT_EQ(generated.Messages(), "");
  const std::string& header = generated.files.front().text;
  for (const char* there : {"struct A :", "struct B :", "struct C :", "struct Pick :", "enum class Kind"}) {
    EXPECT_THAT(header, HasSubstr(there));
  }
  for (const char* missing : {"struct D", "struct E", "enum class Other"}) EXPECT_THAT(header, Not(HasSubstr(missing)));
}

// Names come through schemas that pass on what they USE, and under the names that these have for it.
TEST(Generator, TakesWhatOtherSchemasPassOn) {
  const std::string schemas =
      "SCHEMA a; USE FROM b; ENTITY own; END_ENTITY; END_SCHEMA;"
      "SCHEMA b; USE FROM c (thing, wall AS other); REFERENCE FROM c (hidden); USE FROM d; REFERENCE FROM e; "
      "END_SCHEMA;"
      "SCHEMA c; ENTITY thing; END_ENTITY; ENTITY wall; END_ENTITY; ENTITY hidden; END_ENTITY; END_SCHEMA;"
      "SCHEMA d; ENTITY far; END_ENTITY; END_SCHEMA; SCHEMA e; ENTITY unseen; END_ENTITY; END_SCHEMA;";
  Options some;
  some.entities = {"OTHER", "far"};
  struct Row {
    Options options;
    std::vector<std::string> there;
  };
  for (const Row& row : {Row{{}, {"OWN", "THING", "OTHER", "FAR"}}, Row{some, {"OTHER", "FAR"}}}) {
    const Generated generated = GenerateFrom(schemas, row.options);
    EXPECT_EQ(generated.Messages(), "");
    ASSERT_FALSE(generated.files.empty());
    const std::string& header = generated.files.front().text;
    for (const std::string keyword : {"OWN", "THING", "WALL", "OTHER", "HIDDEN", "FAR", "UNSEEN"}) {
      const bool wanted = std::find(row.there.begin(), row.there.end(), keyword) != row.there.end();
      EXPECT_EQ(header.find("kKeyword = \"" + keyword + '"') != std::string::npos, wanted) << keyword;
    }
  }
}

TEST(Generator, RefusesEntitiesThatFilesCannotTellApart) {
  const std::string ends =
      "ENTITY wall; END_ENTITY; END_SCHEMA;"
      "SCHEMA b; ENTITY Wall; END_ENTITY; ENTITY holder; w : wall; END_ENTITY; END_SCHEMA;";
  EXPECT_EQ(GenerateFrom("SCHEMA a; USE FROM b (holder);" + ends).Messages(),
            "files cannot tell this entity from another 'Wall': give it a new name with USE FROM ... AS\n"
            "the other one is here\n");
  EXPECT_EQ(GenerateFrom("SCHEMA a; USE FROM b (holder, wall AS other);" + ends).Messages(), "");
}

TEST(Generator, HasANamespaceThatIsNoWordOfCpp) {
  for (const std::string name : {"Class", "steprt", "time", "linux", "math"}) {
    const Generated generated = GenerateFrom("SCHEMA " + name + "; ENTITY e; END_ENTITY; END_SCHEMA;");
    ASSERT_FALSE(generated.files.empty());
    EXPECT_EQ(generated.files.front().name, cpp::LowerCase(name) + "_.h");
  }
}

TEST(Generator, RefusesASchemaWithoutTheEntities) {
  const std::string schema = "SCHEMA s; TYPE t = REAL; END_TYPE; ENTITY a; END_ENTITY; END_SCHEMA;";
  Options options;
  options.entities = {"a", "t", "b"};
  EXPECT_EQ(GenerateFrom(schema, options).Messages(), "this schema has no entity 't'\nthis schema has no entity 'b'\n");
  EXPECT_EQ(GenerateFrom("SCHEMA s; END_SCHEMA;").Messages(), "this schema has no entities\n");
}

// Every entity of a long chain would list all those that specialise its end by a further supertype.
TEST(Generator, RefusesWhatWouldGrowAsASquare) {
  std::string schema = "SCHEMA s; ENTITY x; END_ENTITY; ENTITY a0; END_ENTITY;";
  for (int i = 1; i < 1000; ++i) {
    const std::string number = std::to_string(i);
    schema += "ENTITY a" + number + " SUBTYPE OF (a" + std::to_string(i - 1) + "); END_ENTITY; ENTITY b" + number +
              " SUBTYPE OF (x, a999); END_ENTITY;";
  }
  const Generated generated = GenerateFrom(schema + "END_SCHEMA;");
  EXPECT_EQ(generated.Messages(), "the entities with several supertypes have too many supertypes to be listed\n");
  EXPECT_TRUE(generated.files.empty());
}

// Each attribute has another type of one chain. A walk for each of them takes several times the limit of time.
TEST(Generator, WalksChainsOfTypesOnce) {
  std::string types;
  std::string attributes;
  for (int i = 0; i < 100'000; ++i) {
    const std::string number = std::to_string(i);
    types += "TYPE t" + number + " = t" + std::to_string(i + 1) + "; END_TYPE;";
    attributes += 'a' + number + " : LIST OF t" + number + ';';
  }
  Options options;
  options.parts = 1;
  const std::clock_t start = std::clock();
  const Generated generated = GenerateFrom(
      "SCHEMA s;" + types + "TYPE t100000 = INTEGER; END_TYPE; ENTITY e;" + attributes + "END_ENTITY; END_SCHEMA;",
      options);
  EXPECT_LT((std::clock() - start) / CLOCKS_PER_SEC, 10);
  EXPECT_EQ(generated.Messages(), "");
  ASSERT_FALSE(generated.files.empty());
  EXPECT_THAT(generated.files.front().text, HasSubstr("  steprt::List<steprt::Integer> a0;\n"));
}

// Every select would list all entities that are one of its members by a further supertype.
TEST(Generator, RefusesSelectsThatWouldGrowAsASquare) {
  std::string schema = "SCHEMA s; ENTITY x; END_ENTITY; ENTITY y; END_ENTITY;";
  for (int i = 0; i < 1000; ++i) {
    const std::string number = std::to_string(i);
    schema += "ENTITY a" + number + " SUBTYPE OF (x, y); END_ENTITY; TYPE s" + number + " = SELECT (y); END_TYPE;";
  }
  const Generated generated = GenerateFrom(schema + "END_SCHEMA;");
  EXPECT_EQ(generated.Messages(), "the entities with several supertypes have too many supertypes to be listed\n");
}

// Type numbers run depth first from the number asked for; the classes are spread over the parts, each once.
TEST(Generator, NumbersTypesAndSplitsParts) {
  const std::string schema =
      "SCHEMA s; ENTITY a; END_ENTITY; ENTITY b; END_ENTITY; ENTITY c SUBTYPE OF (a); END_ENTITY;"
      "ENTITY d SUBTYPE OF (c); END_ENTITY; ENTITY e SUBTYPE OF (a); END_ENTITY; END_SCHEMA;";
  Options options;
  options.firstType = 70;
  options.parts = 7;
  const Generated generated = GenerateFrom(schema, options);
  const std::string& header = generated.files.front().text;
  for (const char* line :
       {"Entity<A, 70>", "Entity<C, 71, A>", "Entity<D, 72, C>", "Entity<E, 73, A>", "Entity<B, 74>"}) {
    EXPECT_THAT(header, HasSubstr(line));
  }
  EXPECT_THAT(header, HasSubstr("kKeyword = \"A\";\n  static constexpr int kLastType = 73;"));
  ASSERT_EQ(generated.files.size(), 9U);
  std::string parts;
  for (std::size_t i = 2; i < generated.files.size(); ++i) parts += generated.files[i].text;
  for (const std::string name : {"A", "B", "C", "D", "E"}) {
    const std::size_t found = parts.find(name + "::Describe(");
    ASSERT_NE(found, std::string::npos) << name;
    EXPECT_EQ(parts.find("void " + name + "::Describe(", found), std::string::npos) << name;
  }
}

TEST(Generator, NamesClassesAndNamespaces) {
  using cpp::ClassName;
  EXPECT_EQ(ClassName("IfcWall"), "IfcWall");
  EXPECT_EQ(ClassName("cartesian_point_2"), "CartesianPoint2");
  EXPECT_EQ(ClassName("Two_Words"), "Two_Words");
  for (const char* name : {"a", "a_1", "ifc2x3", "a::b", "_a"}) EXPECT_TRUE(cpp::IsNamespace(name)) << name;
  for (const char* name :
       {"", "1a", "a-b", "a:b", "::a", "a::", "class", "std", "a::steprt", "a b", "EOF", "time::a"}) {
    EXPECT_FALSE(cpp::IsNamespace(name)) << name;
  }
}

}  // namespace
