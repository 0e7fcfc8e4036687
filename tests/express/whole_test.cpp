// One text with every construct: what it resolves to, and what becomes of it when it is damaged.
#include <gmock/gmock.h>

#include "loading.h"

namespace {

using express_test::Dump;
using express_test::FileText;
using express_test::Loaded;
using express_test::LoadTexts;

TEST(Whole, EveryConstructResolvesToWhatItDeclares) {
  const Loaded loaded = LoadTexts({FileText("every_construct.exp")});
  EXPECT_EQ(loaded.Messages(), "");
  EXPECT_EQ(Dump(*loaded.model), FileText("every_construct.txt"));
}

// The same schemas, one in each file, in any order.
TEST(Whole, TheOrderOfTheFilesDoesNotMatter) {
  const std::string text = FileText("every_construct.exp");
  const std::size_t catalogue = text.find("SCHEMA catalogue");
  const std::size_t colours = text.find("SCHEMA colours");
  const Loaded loaded =
      LoadTexts({text.substr(colours), text.substr(0, catalogue), text.substr(catalogue, colours - catalogue)});
  EXPECT_EQ(loaded.Messages(), "");
  const std::string dump = FileText("every_construct.txt");
  const std::size_t dumpedCatalogue = dump.find("schema catalogue");
  const std::size_t dumpedColours = dump.find("schema colours");
  EXPECT_EQ(Dump(*loaded.model), dump.substr(dumpedColours) + dump.substr(0, dumpedCatalogue) +
                                     dump.substr(dumpedCatalogue, dumpedColours - dumpedCatalogue));
}

// Whatever is in upper case may be in lower case, and the other way round; strings and names as they are printed
// differ.
TEST(Whole, TheCaseOfLettersDoesNotMatter) {
  std::string text = FileText("every_construct.exp");
  for (char& c : text) {
    if (c >= 'A' && c <= 'Z')
      c = static_cast<char>(c - 'A' + 'a');
    else if (c >= 'a' && c <= 'z')
      c = static_cast<char>(c - 'a' + 'A');
  }
  const Loaded loaded = LoadTexts({text});
  EXPECT_EQ(loaded.Messages(), "");
  EXPECT_EQ(express::Fold(Dump(*loaded.model)), express::Fold(FileText("every_construct.txt")));
}

TEST(Whole, EveryPrefixEndsInDiagnostics) {
  std::string text = FileText("every_construct.exp");
  while (text.back() != ';') text.pop_back();
  const std::size_t second = text.find("END_SCHEMA;") + 11;
  const std::size_t third = text.find("END_SCHEMA;", second) + 11;
  for (std::size_t length = 0; length < text.size(); ++length) {
    const Loaded loaded = LoadTexts({text.substr(0, length)});
    EXPECT_GT(loaded.diagnostics.Errors(), 0U) << length << (length >= second || length >= third ? " after" : "");
    for (const auto& diagnostic : loaded.diagnostics.All()) EXPECT_THAT(Format(diagnostic), testing::EndsWith("\n"));
  }
}

// A token less or twice: reading goes on, finds later schemas, and never fails to end.
TEST(Whole, AMissingOrDoubledTokenLeavesTheOtherSchemasReadable) {
  const std::string text = FileText("every_construct.exp");
  const std::size_t end = text.find("SCHEMA catalogue");
  for (std::size_t from = text.find("CONSTANT"); from < end;) {
    std::size_t to = from + 1;
    const bool word = std::isalnum(static_cast<unsigned char>(text[from])) != 0;
    while (word && (std::isalnum(static_cast<unsigned char>(text[to])) != 0 || text[to] == '_')) ++to;
    // Not what starts or ends a string or a remark: it moves the end of that far away.
    const bool delimits = std::string_view("'\"*").find(text[from]) != std::string_view::npos ||
                          text.substr(from, 2) == "(*" || text.substr(from - 1, 2) == "*)";
    if (!delimits) {
      const Loaded without = LoadTexts({text.substr(0, from) + text.substr(to)});
      EXPECT_EQ(without.model->schemas.back()->name.text, "colours") << text.substr(from, to - from) << " at " << from;
      const Loaded twice = LoadTexts({text.substr(0, to) + " " + text.substr(from)});
      EXPECT_EQ(twice.model->schemas.back()->name.text, "colours") << text.substr(from, to - from) << " at " << from;
    }
    from = to;
  }
}

}  // namespace
