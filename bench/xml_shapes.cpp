// The shapes of documents. The names of elements are those that shape_client.cpp asks for.
#include <string_view>

#include "shapes.h"

namespace bench {
namespace {

std::string Numbered(std::string_view name, int number) { return std::string(name) + std::to_string(number); }

void PutNode(std::string& file, int number, int target, std::string_view keyword = "NODE") {
  ((file += '<') += keyword) += Numbered(" rid=\"#", number);
  file += "\"><Other>";
  file += target == 0 ? "$" : Numbered("#", target);
  ((file += "</Other></") += keyword) += ">\n";
}

void Repeat(std::string& file, std::string_view part, int times) {
  for (int i = 0; i < times; ++i) file += part;
}

// The one attribute of the one instance, of so many equal parts.
void PutWhole(std::string& file, std::string_view open, std::string_view part, int parts, std::string_view close) {
  file += open;
  Repeat(file, part, parts);
  file += close;
}

void Ascending(std::string& file, int items) {
  for (int i = 1; i <= items; ++i) PutNode(file, i, i - 1);
}

void ForwardOnly(std::string& file, int items) {
  for (int i = 1; i <= items; ++i) PutNode(file, i, i == items ? 0 : i + 1);
}

void UnknownKeyword(std::string& file, int items) {
  for (int i = 1; i <= items; ++i) PutNode(file, i, 0, i == 1 ? "NODE" : "STRANGER");
}

// The parser hands it over in pieces.
void LongText(std::string& file, int items) {
  PutWhole(file, "<TEXT rid=\"#1\"><Value>", "a", items, "</Value></TEXT>\n");
}

void TextOfEntities(std::string& file, int items) {
  PutWhole(file, "<TEXT rid=\"#1\"><Value>", "&lt;", items, "</Value></TEXT>\n");
}

void TextOfCdata(std::string& file, int items) {
  PutWhole(file, "<TEXT rid=\"#1\"><Value>", "<![CDATA[a]]>", items, "</Value></TEXT>\n");
}

void TextAmongElements(std::string& file, int items) {
  PutWhole(file, "<TEXT rid=\"#1\"><Value>", "a<b/>", items, "</Value></TEXT>\n");
}

void TextsOfLists(std::string& file, int items) {
  PutWhole(file, "<WORDS rid=\"#1\"><Words>", "'a' ", items, "</Words></WORDS>\n");
}

void NumbersInList(std::string& file, int items) {
  PutWhole(file, "<NUMBERS rid=\"#1\"><Numbers>", "1.25 ", items, "</Numbers></NUMBERS>\n");
}

void BlanksInList(std::string& file, int items) {
  PutWhole(file, "<NUMBERS rid=\"#1\"><Numbers>", "\t ", items, "</Numbers></NUMBERS>\n");
}

void ReferencesInList(std::string& file, int items) {
  PutNode(file, 1, 0);
  PutWhole(file, "<GROUP rid=\"#2\"><Nodes>", "#1 ", items, "</Nodes></GROUP>\n");
}

void Nested(std::string& file, int items) {
  PutWhole(file, "<TEXT rid=\"#1\"><Value>", "<b>", items, "");
  PutWhole(file, "", "</b>", items, "</Value></TEXT>\n");
}

void Comments(std::string& file, int items) {
  PutWhole(file, "<TEXT rid=\"#1\"><Value>a", "<!---->", items, "</Value></TEXT>\n");
}

void LongName(std::string& file, int items) {
  PutWhole(file, "<TEXT rid=\"#1\"><Value>a</Value><", "b", items, "/></TEXT>\n");
}

void Attributes(std::string& file, int items) {
  file += "<NODE rid=\"#1\"><Other";
  for (int i = 0; i < items; ++i) file += Numbered(" a", i) += "=\"\"";
  file += ">$</Other></NODE>\n";
}

// The same for the start tag of an entity, which the first attribute of another name ends the parse in.
void AttributesOfInstance(std::string& file, int items) {
  PutNode(file, 1, 0);
  file += "<NODE";
  for (int i = 0; i < items; ++i) file += Numbered(" a", i) += "=\"\"";
  file += "/>\n";
}

void Children(std::string& file, int items) {
  file += "<FAMILY rid=\"#1\"><Count>" + std::to_string(items) + "</Count>\n";
  for (int i = 0; i < items; ++i) {
    const std::string name = Numbered("Child", i);
    file += '<' + name + ">1</" + name + ">\n";
  }
  file += "</FAMILY>\n";
}

// Entities that lie outside, in the scope of as many prefixes, by a name as long.
void UnloadedEntities(std::string& file, int items) {
  const std::size_t root = file.find("<SHAPES");
  std::string prefixes = "<SHAPES";
  for (int i = 0; i < items; ++i) prefixes += Numbered(" xmlns:p", i) += "=\"u\"";
  file.replace(root, std::string_view("<SHAPES").size(), prefixes);
  file.insert(root,
              "<!DOCTYPE SHAPES [<!ENTITY e SYSTEM '" + std::string(static_cast<std::size_t>(items), 's') + "'>]>");
  PutWhole(file, "<TEXT rid=\"#1\"><Value>a", "&e;", items, "</Value></TEXT>\n");
}

// A name among up to 2^18 that a fixed hash of 8-byte words cannot keep apart: what the top bits of one word change in
// the product with a known factor, two bytes of the next word change back. A unit above a byte stands for its low byte.
std::string CollidingName(int number) {
  constexpr int kBlocks = 3;
  unsigned char changing[kBlocks][2] = {{0x1b, 0x1b}, {0x1b, 0x1b}, {0x1b, 0x1b}};
  for (int bit = 0; number >> bit != 0; ++bit) {
    if (number >> bit & 1) changing[bit / 2 % kBlocks][bit % 2] ^= 0x80 >> bit / (2 * kBlocks);
  }
  const auto unit = [](int byte) { return std::string("\xe4") + char(0xb8 + byte / 64) + char(0x80 + byte % 64); };
  std::string name = "nnnnnnnn";
  for (const auto& [first, second] : changing) {
    name += unit(first) + "aaaaaaa" + unit(second) + "aaa" + unit(second) + "aaa";
  }
  return name;
}

void CollidingChildren(std::string& file, int items) {
  file += "<FAMILY rid=\"#1\">\n";
  for (int i = 1; i < items; ++i) ((file += '<') += CollidingName(i)) += "/>\n";
  file += "<Count>0</Count></FAMILY>\n";
}

constexpr auto Row = RowOf<Form::kXml>;

constexpr Shape kShapes[] = {
    Row("xml_ascending", 250'000, 5'000, kEach, kNone, Ascending),
    Row("xml_forward_only", 250'000, 5'000, kEach, kNone, ForwardOnly),
    Row("xml_unknown_entity", 250'000, 5'000, kOne, kNone, UnknownKeyword),
    Row("xml_long_text", 1'000'000, 1'000'000, kOne, kNone, LongText),
    Row("xml_text_of_entities", 250'000, 100'000, kOne, kNone, TextOfEntities),
    Row("xml_text_of_cdata", 250'000, 100'000, kOne, kNone, TextOfCdata),
    Row("xml_text_among_elements", 250'000, 50'000, kOne, kNone, TextAmongElements),
    Row("xml_list_of_texts", 250'000, 20'000, kOne, kNone, TextsOfLists),
    Row("xml_list_of_numbers", 250'000, 20'000, kOne, kNone, NumbersInList),
    Row("xml_list_of_blanks", 250'000, 20'000, kOne, kNone, BlanksInList),
    Row("xml_list_of_references", 250'000, 20'000, kTwo, kNone, ReferencesInList),
    Row("xml_unloaded_entities", 250'000, 10'000, kOne, kEach, UnloadedEntities),
    Row("xml_nested", 250'000, 10'000, kOne, kNone, Nested),
    Row("xml_comments", 250'000, 50'000, kOne, kNone, Comments),
    Row("xml_long_name", 1'000'000, 200'000, kOne, kNone, LongName),
    Row("xml_attributes", 250'000, 10'000, kOne, kNone, Attributes),
    Row("xml_attributes_of_instance", 250'000, 10'000, kOne, kOne, AttributesOfInstance),
    Row("xml_children", 250'000, 40'000, kOne, kNone, Children),
    Row("xml_colliding_children", 32'768, 8'192, kOne, kNone, CollidingChildren),
};

}  // namespace

std::span<const Shape> XmlShapes() { return kShapes; }

}  // namespace bench
