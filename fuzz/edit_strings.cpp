#include "edit_strings.h"

#include <algorithm>

#include "check.h"

namespace fuzz {
namespace {

int SignOf(int number) { return (number > 0) - (number < 0); }

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }
char Upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

std::string Mapped(std::string text, char (*map)(char)) {
  std::transform(text.begin(), text.end(), text.begin(), map);
  return text;
}

}  // namespace

void Strings::Step(Bytes& bytes) {
  Pair& pair = pairs_[bytes.Below(3)];
  Pair& other = pairs_[bytes.Below(3)];
  Edit(bytes, pair, other);
  CheckOrder(pair, other.expected);
  for (Pair& each : pairs_) Compare(each);
}

void Strings::Edit(Bytes& bytes, Pair& pair, Pair& other) {
  switch (bytes.Below(6)) {
    case 0:
      pair.expected = bytes.Text();
      pair.text = pair.expected.c_str();
      break;
    case 1:
      pair.text = other.text;  // itself, at times
      pair.expected = other.expected;
      break;
    case 2: {  // its own end
      const std::size_t start = std::min<std::size_t>(bytes.Byte(), pair.expected.size());
      pair.text = static_cast<const char*>(pair.text) + start;
      pair.expected.erase(0, start);
      break;
    }
    case 3: {
      Open copy(pair.text);
      STEPRT_CHECK(pair.expected == static_cast<const char*>(copy));
      STEPRT_CHECK(copy.GetLength() == static_cast<int>(pair.expected.size()));
      break;
    }
    case 4:
      CheckCase(pair);
      break;
    default:
      pair.text.Empty();
      pair.expected.clear();
      pair.capacity = 0;
  }
}

void Strings::CheckCase(Pair& pair) {
  Open folded(pair.text);
  folded.MakeLower();
  STEPRT_CHECK(Mapped(pair.expected, Lower) == static_cast<const char*>(folded));
  folded.MakeUpper();
  STEPRT_CHECK(Mapped(pair.expected, Upper) == static_cast<const char*>(folded));
  STEPRT_CHECK(folded.CompareNoCase(pair.text) == 0);
}

void Strings::CheckOrder(Pair& pair, const std::string& other) {
  STEPRT_CHECK(pair.text.Compare(other.c_str()) == SignOf(pair.expected.compare(other)));
  const int folded = Mapped(pair.expected, Lower).compare(Mapped(other, Lower));
  STEPRT_CHECK(SignOf(pair.text.CompareNoCase(other.c_str())) == SignOf(folded));
}

void Strings::Compare(Pair& pair) {
  STEPRT_CHECK(pair.expected == static_cast<const char*>(pair.text));
  STEPRT_CHECK(pair.text.GetLength() == static_cast<int>(pair.expected.size()));
  STEPRT_CHECK(pair.text.IsEmpty() == pair.expected.empty());
  STEPRT_CHECK(pair.text.IsBlank() == (pair.expected.find_first_not_of(' ') == std::string::npos));
  STEPRT_CHECK(pair.text.Capacity() >= std::max(pair.capacity, pair.text.GetLength()));
  pair.capacity = pair.text.Capacity();
}

}  // namespace fuzz
