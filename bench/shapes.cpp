#include "shapes.h"

#include <charconv>
#include <cstdio>
#include <numeric>
#include <random>
#include <string_view>
#include <vector>

#include "shape_client.h"

namespace bench {
namespace {

constexpr int kStrideWidth = 4096;
constexpr std::uint32_t kSeed = 20261125;

void PutInteger(std::string& file, int value) {
  char room[16];
  file.append(room, std::to_chars(room, room + sizeof room, value).ptr);
}

// One record with a reference, or with `$` for 0.
void PutNode(std::string& file, int number, int target, std::string_view keyword = "NODE") {
  file += '#';
  PutInteger(file, number);
  ((file += '=') += keyword) += '(';
  if (target == 0) {
    file += '$';
  } else {
    file += '#';
    PutInteger(file, target);
  }
  file += ");\n";
}

void Repeat(std::string& file, std::string_view part, int times) {
  for (int i = 0; i < times; ++i) file += part;
}

void Ascending(std::string& file, int items) {
  for (int i = 1; i <= items; ++i) PutNode(file, i, i - 1);
}

void Stride(std::string& file, int items) {
  for (int i = 1; i <= items; ++i) PutNode(file, i * kStrideWidth, (i - 1) * kStrideWidth);
}

void Descending(std::string& file, int items) {
  for (int i = items; i > 0; --i) PutNode(file, i, i == items ? 0 : i + 1);
}

void Shuffled(std::string& file, int items) {
  std::vector<int> numbers(static_cast<std::size_t>(items));
  std::iota(numbers.begin(), numbers.end(), 1);
  std::mt19937 random(kSeed);
  for (std::size_t i = numbers.size(); i > 1; --i) std::swap(numbers[i - 1], numbers[random() % i]);
  for (const int number : numbers) {
    const int target = 1 + static_cast<int>(random() % numbers.size());
    PutNode(file, number, target == number ? 0 : target);
  }
}

void ManyKeywords(std::string& file, int items) {
  for (int i = 1; i <= items; ++i) PutNode(file, i, i - 1, "KIND" + std::to_string(i % kKinds));
}

void ForwardOnly(std::string& file, int items) {
  for (int i = 1; i <= items; ++i) PutNode(file, i, i == items ? 0 : i + 1);
}

void ToTheOldest(std::string& file, int items) {
  for (int i = 1; i <= items; ++i) PutNode(file, i, i == 1 ? 0 : 1);
}

void NumberUsedAgain(std::string& file, int items) {
  PutNode(file, 1, 0);
  for (int i = 0; i < items; ++i) PutNode(file, 1, 0);
}

void ToUnknownNumbers(std::string& file, int items) {
  for (int i = 1; i <= items; ++i) PutNode(file, i, i + items);
}

void ToWrongType(std::string& file, int items) {
  file += "#1=TEXT('a');\n";
  for (int i = 2; i <= items; ++i) PutNode(file, i, 1);
}

void UnknownKeyword(std::string& file, int items) {
  PutNode(file, 1, 0);
  for (int i = 2; i <= items; ++i) PutNode(file, i, 1, "STRANGER");
}

void NumbersInList(std::string& file, int items) {
  file += "#1=NUMBERS((0.";
  Repeat(file, ",1.25", items - 1);
  file += "));\n";
}

void KnownInList(std::string& file, int items) {
  PutNode(file, 1, 0);
  file += "#2=GROUP((#1";
  Repeat(file, ",#1", items - 1);
  file += "));\n";
}

void UnknownYetInList(std::string& file, int items) {
  file += "#2=GROUP((#3";
  Repeat(file, ",#3", items - 1);
  file += "));\n";
  PutNode(file, 3, 0);
}

void TextsInList(std::string& file, int items) {
  file += "#1=WORDS(('a'";
  Repeat(file, ",'It''s'", items - 1);
  file += "));\n";
}

void LongText(std::string& file, int items) {
  file += "#1=TEXT('";
  Repeat(file, "a", items);
  file += "');\n";
}

void LongKeyword(std::string& file, int items) {
  PutNode(file, 1, 0);
  file += "#2=";
  Repeat(file, "A", items);
  file += "(#1);\n";
}

void LongNumber(std::string& file, int items) {
  file += "#1=NUMBERS((";
  Repeat(file, "1", items);
  file += "));\n";
}

void UnclosedTexts(std::string& file, int items) {
  PutNode(file, 1, 0);
  Repeat(file, "'a\n", items);
}

void Brackets(std::string& file, int items) {
  PutNode(file, 1, 0);
  file += "#2=GROUP(";
  Repeat(file, "(", items);
  file += ");\n";
}

void Semicolons(std::string& file, int items) {
  PutNode(file, 1, 0);
  Repeat(file, ";", items);
}

void DataSections(std::string& file, int items) {
  for (int i = 1; i <= items; ++i) {
    PutNode(file, i, i - 1);
    file += "ENDSEC;\nDATA;\n";
  }
}

constexpr Amount kEachAndOne = {1, 1};
constexpr Amount kEachButOne = {1, -1};

constexpr auto Row = RowOf<Form::kClearText>;

constexpr Shape kShapes[] = {
    Row("ascending", 250'000, 10'000, kEach, kNone, Ascending),
    // Counted where the hash maps, which grow by half, are about as full in both files.
    Row("steps_of_4096", 62'500, 19'000, kEach, kNone, Stride),
    Row("descending", 250'000, 10'000, kEach, kNone, Descending),
    Row("shuffled", 250'000, 10'000, kEach, kNone, Shuffled),
    Row("2000_keywords", 250'000, 10'000, kEach, kNone, ManyKeywords),
    Row("forward_only", 250'000, 10'000, kEach, kNone, ForwardOnly),
    Row("to_the_oldest", 250'000, 10'000, kEach, kNone, ToTheOldest),
    Row("number_used_again", 250'000, 10'000, kEachAndOne, kEach, NumberUsedAgain),
    Row("unknown_references", 250'000, 10'000, kEach, kEach, ToUnknownNumbers),
    Row("wrong_type", 250'000, 10'000, kEach, kEachButOne, ToWrongType),
    Row("unknown_entity", 250'000, 10'000, kOne, kEachButOne, UnknownKeyword),
    Row("list_of_numbers", 250'000, 20'000, kOne, kNone, NumbersInList),
    Row("list_of_known", 250'000, 20'000, kTwo, kNone, KnownInList),
    Row("list_of_forward", 250'000, 20'000, kTwo, kNone, UnknownYetInList),
    Row("list_of_texts", 250'000, 20'000, kOne, kNone, TextsInList),
    Row("long_text", 1'000'000, 200'000, kOne, kOne, LongText),
    Row("long_keyword", 1'000'000, 200'000, kOne, kTwo, LongKeyword),
    Row("long_number", 1'000'000, 200'000, kOne, kOne, LongNumber),
    Row("unclosed_texts", 250'000, 20'000, kOne, kEach, UnclosedTexts),
    Row("brackets", 1'000'000, 100'000, kTwo, kTwo, Brackets),
    Row("semicolons", 2'500'000, 200'000, kOne, kNone, Semicolons),
    Row("data_sections", 250'000, 10'000, kEach, kNone, DataSections),
};

constexpr std::string_view kHead =
    "ISO-10303-21;\nHEADER;\nFILE_DESCRIPTION((''),'2;1');\n"
    "FILE_NAME('shape','2026-11-25T00:00:00',(''),(''),'','','');\nFILE_SCHEMA(('SHAPES'));\nENDSEC;\nDATA;\n";
constexpr std::string_view kTail = "ENDSEC;\nEND-ISO-10303-21;\n";
constexpr std::string_view kXmlHead = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<SHAPES>\n";
constexpr std::string_view kXmlTail = "</SHAPES>\n";

}  // namespace

std::span<const Shape> ClearTextShapes() { return kShapes; }

bool WriteShape(const Shape& shape, int items, const std::string& path) {
  const bool isXml = shape.form == Form::kXml;
  std::string text(isXml ? kXmlHead : kHead);
  shape.put(text, items);
  text += isXml ? kXmlTail : kTail;
  std::FILE* file = std::fopen(path.c_str(), "wb");
  if (!file) return false;
  const bool isWhole = std::fwrite(text.data(), 1, text.size(), file) == text.size();
  return std::fclose(file) == 0 && isWhole;
}

}  // namespace bench
