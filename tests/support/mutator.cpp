#include "support/mutator.h"

#include <algorithm>
#include <random>
#include <utility>

namespace steprt_test {
namespace {

using Tokens = std::vector<std::string>;

// What no reader likes to meet; of both forms, since a form's marks are odd words in the other.
const Tokens kHostile = {"2147483648",
                         "-99999999999999999999",
                         "1e999",
                         "0x1p-1075",
                         ".",
                         "-",
                         "#",
                         "#0",
                         "#-1",
                         "#1",
                         "#999999999999",
                         std::string(60, '('),
                         std::string(60, ')'),
                         "(",
                         ")",
                         "=",
                         ",",
                         ";",
                         "$",
                         "*",
                         "!",
                         "!WALL",
                         "'",
                         "''",
                         "'''",
                         "\"",
                         "\"0F",
                         "'open\n",
                         "\r",
                         "/*",
                         "*/",
                         ".T.",
                         ".NONE.",
                         "ENDSEC",
                         "DATA",
                         "HEADER",
                         "END-ISO-10303-21",
                         "WALL",
                         std::string(255, 'W'),
                         std::string(300, '1'),
                         "#" + std::string(300, '0') + "1",
                         "'" + std::string(256, 't') + "'",
                         "'" + std::string(5000, 't'),
                         std::string(5000, 'W'),
                         "<",
                         ">",
                         "</",
                         "/>",
                         "<x>",
                         "<PROJ>",
                         "</PROJ>",
                         "<Age>",
                         "<!--",
                         "-->",
                         "<![CDATA[",
                         "]]>",
                         "<?x",
                         "?>",
                         "<!DOCTYPE a [<!ENTITY b '&c;'><!ENTITY c '&b;'>]>",
                         "&",
                         "&b;",
                         "&amp;",
                         "&#0;",
                         "&#13;",
                         "&#65;",
                         "&#x141;",
                         "&#x10000;",
                         "rid",
                         "rid='#1'",
                         "xmlns:x='y'",
                         "x:",
                         "UTF-16",
                         "\xef\xbb\xbf",
                         "\xc3\xa9",
                         std::string(1, '\0')};

bool IsWordByte(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' || c == '.' ||
         c == '+' || c == '-' || c == '#' || static_cast<unsigned char>(c) >= 0x80;
}

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

// Where the token ends that starts at `at`: a text, a word, a run of blanks, or one byte.
std::size_t TokenEnd(const std::string& bytes, std::size_t at) {
  const char first = bytes[at];
  if (first == '\'' || first == '"') {
    const std::size_t close = bytes.find_first_of(std::string(1, first) + "\n", at + 1);
    return close == std::string::npos ? bytes.size() : close + 1;
  }
  bool (*const goesOn)(char) = IsWordByte(first) ? IsWordByte : IsBlank;
  std::size_t end = at + 1;
  while (goesOn(first) && end < bytes.size() && goesOn(bytes[end])) ++end;
  return end;
}

Tokens Split(const std::string& bytes) {
  Tokens tokens;
  for (std::size_t at = 0, end = 0; at < bytes.size(); at = end) {
    end = TokenEnd(bytes, at);
    tokens.push_back(bytes.substr(at, end - at));
  }
  return tokens;
}

std::string Join(const Tokens& tokens) {
  std::string bytes;
  for (const std::string& token : tokens) bytes += token;
  return bytes;
}

class Mutator {
 public:
  explicit Mutator(unsigned seed) : random_(seed) {}

  std::size_t Below(std::size_t limit) { return random_() % limit; }

  // `file` is not empty, here as below, and may be afterwards.
  void DamageBytes(std::string& file, const std::string& other) {
    const std::size_t at = Below(file.size());
    const std::size_t span = std::min(Below(1 + Below(60)), file.size() - at);
    switch (Below(9)) {
      case 0:
        file[at] = static_cast<char>(file[at] ^ 1 << Below(8));
        break;
      case 1:
        file.insert(at, 1, static_cast<char>(Below(256)));
        break;
      case 2:
        file.erase(at, 1 + span);
        break;
      case 3:
        file.insert(at, file.substr(at, span));
        break;
      case 4:
        if (Below(4) == 0) file.resize(at);
        break;
      case 5:
        if (Below(2) == 0) file = file.substr(0, at) + other.substr(Below(other.size() + 1));
        break;
      case 6:
        if (Below(2) == 0) file[at] = '\0';
        break;
      case 7:
        file[at] = static_cast<char>(0x80 + Below(0x80));
        break;
      default:
        file.insert(at, other.substr(Below(other.size() + 1), span));
    }
  }

  void DamageTokens(Tokens& tokens) {
    const std::size_t at = Below(tokens.size());
    const std::size_t other = Below(tokens.size());
    switch (Below(6)) {
      case 0:
        std::swap(tokens[at], tokens[other]);
        break;
      case 1:
        tokens[at].clear();
        break;
      case 2:
        for (std::size_t times = 1 + Below(3); times > 0; --times) tokens[at] += tokens[at];
        break;
      case 3:
        tokens[at] = tokens[other];
        break;
      case 4:
        tokens[at] = kHostile[Below(kHostile.size())];
        break;
      default:
        tokens[at] += kHostile[Below(kHostile.size())];
    }
  }

 private:
  std::mt19937 random_;
};

}  // namespace

std::string Mutated(const std::vector<std::string>& files, unsigned seed) {
  Mutator mutator(seed);
  std::string file = files[mutator.Below(files.size())];
  const std::string& other = files[mutator.Below(files.size())];
  std::size_t places = 1 + mutator.Below(4);
  if (seed % 2 == 0) {
    for (; places > 0 && !file.empty(); --places) mutator.DamageBytes(file, other);
    return file;
  }
  Tokens tokens = Split(file);
  for (; places > 0; --places) mutator.DamageTokens(tokens);
  return Join(tokens);
}

}  // namespace steprt_test
