#include "support/mutator.h"

#include <algorithm>
#include <random>
#include <utility>

namespace steprt_test {
namespace {

using Tokens = std::vector<std::string>;

// Of both forms, since a form's marks are odd words in the other. Blanks part them, and ~ stands for one.
constexpr char kWords[] =
    // numbers
    "1 -12 +7 2.5 1.E3 .5 1e5 1e 1e+ 1.5.2 --5 +-5 . -. -.5e1 - + 1-2 0x1F 0x1p-1075 +inf -nan 1e400 1e999 -1e-400 "
    "2147483648 -2147483649 99999999999999999999 -99999999999999999999 123456789012345678901234567890.5 0.3 1e22 1e23 "
    "0.1e0000000000005 1.7976931348623159e308 4.9e-324 2.4e-324 9007199254740993. 8.5e-22 \v5 \f "
    // references, texts, enumerators and marks
    "# #0 #1 #2 #3 #7 #4097 #-1 #+3 #12X #9999999999 'a' 'it''s' '' ' ''' 'open\n 'x\r\ny' .T. .F. .U. .t. .T .RED. "
    ".blue. .NONE. $ * = ( ) , ,, ; ! !X !WALL /* */ \" \"0F \"x~y\" \r \x80 _A "
    // names
    "WALL door PRODUCT OTHER A.B-C A*B DATA ENDSEC HEADER STEP ENDSTEP ISO-10303-21 END-ISO-10303-21 FILE_NAME "
    "FILE_SCHEMA file_description "
    // marks and names of documents
    "< > </ /> <x> <PROJ> </PROJ> <Age> <!-- --> <![CDATA[ ]]> <?x ?> "
    "<!DOCTYPE~a~[<!ENTITY~b~'&c;'><!ENTITY~c~'&b;'>]> & &b; &amp; &#0; &#13; &#65; &#x141; &#x10000; rid rid='#1' "
    "xmlns:x='y' x: UTF-16 \xef\xbb\xbf \xc3\xa9";

Tokens MakeHostileWords() {
  Tokens words = {std::string(1, '\0'),
                  std::string(60, '('),
                  std::string(60, ')'),
                  std::string(255, 'W'),
                  std::string(5000, 'W'),
                  std::string(300, '1'),
                  "#" + std::string(300, '0') + "1",
                  "'" + std::string(256, 't') + "'",
                  "'" + std::string(5000, 't')};
  std::string word;
  for (const char* c = kWords; *c; ++c) {
    if (*c != ' ') word += *c == '~' ? ' ' : *c;
    if (*c == ' ' || !c[1]) words.push_back(std::exchange(word, ""));
  }
  return words;
}

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
    const std::size_t how = Below(9);
    if (how == 0) file[at] = static_cast<char>(file[at] ^ 1 << Below(8));
    if (how == 1) file.insert(at, 1, static_cast<char>(Below(256)));
    if (how == 2) file.erase(at, 1 + span);
    if (how == 3) file.insert(at, file.substr(at, span));
    if (how == 4 && Below(4) == 0) file.resize(at);
    if (how == 5 && Below(2) == 0) file = file.substr(0, at) + other.substr(Below(other.size() + 1));
    if (how == 6 && Below(2) == 0) file[at] = '\0';
    if (how == 7) file[at] = static_cast<char>(0x80 + Below(0x80));
    if (how == 8) file.insert(at, other.substr(Below(other.size() + 1), span));
  }

  void DamageTokens(Tokens& tokens) {
    const std::size_t at = Below(tokens.size());
    const std::size_t other = Below(tokens.size());
    const std::string& hostile = HostileWords()[Below(HostileWords().size())];
    const std::size_t how = Below(6);
    if (how == 0) std::swap(tokens[at], tokens[other]);
    if (how == 1) tokens[at].clear();
    for (std::size_t times = how == 2 ? 1 + Below(3) : 0; times > 0; --times) tokens[at] += tokens[at];
    if (how == 3) tokens[at] = tokens[other];
    if (how == 4) tokens[at] = hostile;
    if (how == 5) tokens[at] += hostile;
  }

 private:
  std::mt19937 random_;
};

}  // namespace

const Tokens& HostileWords() {
  static const Tokens words = MakeHostileWords();
  return words;
}

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
