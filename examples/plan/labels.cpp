#include "labels.h"

#include <cctype>
#include <cstdio>
#include <cstring>

namespace plan {
namespace {

void AppendUtf8(unsigned code, std::string* out) {
  if (code < 0x80) {
    *out += static_cast<char>(code);
  } else if (code < 0x800) {
    *out += static_cast<char>(0xC0 | code >> 6);
    *out += static_cast<char>(0x80 | (code & 0x3F));
  } else {
    *out += static_cast<char>(0xE0 | code >> 12);
    *out += static_cast<char>(0x80 | (code >> 6 & 0x3F));
    *out += static_cast<char>(0x80 | (code & 0x3F));
  }
}

// The value of `digits` hexadecimal digits; -1 if there are fewer.
int HexValue(const char* text, int digits) {
  int value = 0;
  for (int i = 0; i < digits; ++i) {
    const int c = static_cast<unsigned char>(text[i]);
    if (!std::isxdigit(c)) return -1;
    value = value * 16 + (std::isdigit(c) ? c - '0' : std::toupper(c) - 'A' + 10);
  }
  return value;
}

// Decodes the directive at `text` and returns what follows it, or null if there is no directive.
const char* Decode(const char* text, std::string* out) {
  if (std::strncmp(text, "\\S\\", 3) == 0 && text[3]) {
    AppendUtf8(0x80U + static_cast<unsigned char>(text[3]), out);
    return text + 4;
  }
  if (std::strncmp(text, "\\X\\", 3) == 0 && HexValue(text + 3, 2) >= 0) {
    AppendUtf8(static_cast<unsigned>(HexValue(text + 3, 2)), out);
    return text + 5;
  }
  if (std::strncmp(text, "\\X2\\", 4) != 0) return nullptr;
  text += 4;
  for (; HexValue(text, 4) >= 0; text += 4) AppendUtf8(static_cast<unsigned>(HexValue(text, 4)), out);
  return std::strncmp(text, "\\X0\\", 4) == 0 ? text + 4 : text;
}

// Of one letter of size 1. Wide are the letters of East Asian scripts, which UTF-8 writes with three bytes and more.
double LetterWidth(unsigned char lead) {
  if (lead >= 0xE3) return 1;
  if (lead >= 0x80) return 0.6;
  if (std::strchr("iljtfr.,:;|!'()[]/- I", lead)) return 0.34;
  if (std::strchr("mwMW@%", lead)) return 0.88;
  return std::isupper(lead) ? 0.7 : 0.57;
}

}  // namespace

std::string LabelOf(const char* text) {
  std::string label;
  while (*text) {
    if (const char* behind = Decode(text, &label)) {
      text = behind;
    } else {
      AppendUtf8(static_cast<unsigned char>(*text++), &label);
    }
  }
  return label;
}

std::string FileNameOf(const std::string& label) {
  std::string name;
  for (const char c : label) {
    if (std::isalnum(static_cast<unsigned char>(c))) {
      name += c;
    } else if (!name.empty() && name.back() != '_') {
      name += '_';
    }
  }
  while (!name.empty() && name.back() == '_') name.pop_back();
  return name.empty() ? "storey" : name;
}

std::string NumberText(double value, int decimals) {
  char text[64];
  std::snprintf(text, sizeof text, "%.*f", decimals, value);
  return text;
}

double TextWidth(const std::string& text, double size) {
  double width = 0;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if ((byte & 0xC0) != 0x80) width += LetterWidth(byte);
  }
  return width * size;
}

}  // namespace plan
