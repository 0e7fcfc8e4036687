// Shapes of a standard file that the library's own form does not have.
#include "shapes.h"

namespace bench {
namespace {

void Repeat(std::string& file, const char* part, int times) {
  for (int i = 0; i < times; ++i) file += part;
}

std::string Number(int i) { return std::to_string(i); }

// None of the parts but the last is of the type that the references expect.
void PartsTimesReferences(std::string& file, int items) {
  file += "#1=(";
  Repeat(file, "TEXT('a')", items);
  file += "NODE($));#2=GROUP((#1";
  Repeat(file, ",#1", items);
  file += "));\n";
}

// The same, before the instance is known.
void ReferencesTimesParts(std::string& file, int items) {
  file += "#2=GROUP((#1";
  Repeat(file, ",#1", items);
  file += "));#1=(";
  Repeat(file, "TEXT('a')", items);
  file += "NODE($));\n";
}

// The name that counts is the last one in the list, and is looked for once for each section.
void SchemasTimesSections(std::string& file, int items) {
  file += "ENDSEC;HEADER;FILE_SCHEMA((";
  for (int i = 0; i < items; ++i) file += "'OTHER" + Number(i) + "',";
  file += "'SHAPES { 1 0 }'));ENDSEC;\n";
  for (int i = 1; i <= items; ++i) file += "DATA('d',('SHAPES'));#" + Number(i) + "=NODE($);ENDSEC;\n";
  file += "DATA;";
}

void LongComment(std::string& file, int items) {
  file += "#1=NODE($)/*";
  Repeat(file, "*a\n", items);
  file += "*/;\n";
}

void ManyComments(std::string& file, int items) {
  file += "#1=NODE(";
  Repeat(file, "/* a */ ", items);
  file += "$);\n";
}

void TextOfLines(std::string& file, int items) {
  file += "#1=TEXT('";
  Repeat(file, "a\n", items);
  file += "');\n";
}

void NestedLists(std::string& file, int items) {
  file += "#1=NODE(";
  Repeat(file, "(", items);
  Repeat(file, ")", items);
  file += ");\n";
}

void OpenLists(std::string& file, int items) {
  file += "#1=NODE(";
  Repeat(file, "(", items);
}

void ManyParts(std::string& file, int items) {
  file += "#1=(";
  Repeat(file, "NODE(#1)", items);
  file += ");\n";
}

void UnknownParts(std::string& file, int items) {
  file += "#1=(";
  Repeat(file, "STRANGER((1),'a')", items);
  file += ");\n";
}

void NestedScopes(std::string& file, int items) {
  for (int i = 1; i <= items; ++i) file += "#" + Number(i) + "=&SCOPE\n";
  Repeat(file, "ENDSCOPE NODE($);\n", items);
}

// The column of each fault is counted from the start of the line.
void FaultsOnALine(std::string& file, int items) {
  for (int i = 1; i <= items; ++i) file += "#" + Number(i) + "=NODE(5);";
}

void DanglingOnALine(std::string& file, int items) {
  file += "#1=GROUP((#2";
  Repeat(file, ",#2", items - 1);
  file += "));\n";
}

void LargeNames(std::string& file, int items) {
  for (int i = 1; i <= items; ++i) {
    file += "#90000000000" + Number(i) + "=NODE(#90000000000" + Number(items + 1 - i) + ");\n";
  }
}

constexpr auto Row = RowOf<Form::kStandard>;

constexpr Shape kShapes[] = {
    Row("parts_and_references", 125'000, 5'000, kTwo, kNone, PartsTimesReferences),
    Row("references_and_parts", 125'000, 5'000, kTwo, kNone, ReferencesTimesParts),
    Row("schemas_and_sections", 60'000, 3'000, kEach, kNone, SchemasTimesSections),
    Row("comment", 1'000'000, 100'000, kOne, kNone, LongComment),
    Row("comments", 500'000, 20'000, kOne, kNone, ManyComments),
    Row("text_of_lines", 1'000'000, 100'000, kOne, kNone, TextOfLines),
    Row("nested_lists", 1'000'000, 100'000, kOne, kOne, NestedLists),
    Row("open_lists", 1'000'000, 100'000, kOne, kTwo, OpenLists),
    Row("complex_of_parts", 250'000, 10'000, kOne, kNone, ManyParts),
    Row("unknown_parts", 250'000, 10'000, kOne, kEach, UnknownParts),
    Row("nested_scopes", 250'000, 10'000, kEach, kNone, NestedScopes),
    Row("faults_on_a_line", 125'000, 5'000, kEach, kEach, FaultsOnALine),
    Row("dangling_on_a_line", 250'000, 10'000, kOne, kEach, DanglingOnALine),
    Row("large_names", 125'000, 9'000, kEach, kNone, LargeNames),
};

}  // namespace

std::span<const Shape> StandardShapes() { return kShapes; }

}  // namespace bench
