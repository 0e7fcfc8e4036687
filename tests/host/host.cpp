#include "host/host.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <cfenv>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <locale>
#include <sstream>

#include "support/temp_files.h"

namespace steprt_test {
namespace {

// ---- comma ---------------------------------------------------------------------------------------------------------

// A decimal comma, digits in groups, small letters above 0x7F, and an i whose capital is none of A to Z.
const char kDefinition[] = R"(comment_char %
escape_char /
LC_NUMERIC
decimal_point "<U002C>"
thousands_sep "<U002E>"
grouping 3;3
END LC_NUMERIC
LC_CTYPE
upper <U0041>..<U005A>;<U00C0>..<U00D6>;<U0130>
lower <U0061>..<U007A>;<U00E0>..<U00F6>;<U0131>
digit <U0030>..<U0039>
space <U0009>..<U000D>;<U0020>;<U00A0>
blank <U0009>;<U0020>;<U00A0>
punct <U0021>..<U002F>;<U003A>..<U0040>;<U005B>..<U0060>;<U007B>..<U007E>;<U00B7>
toupper @upper@(<U0069>,<U0130>);(<U0131>,<U0049>)
tolower @lower@(<U0049>,<U0131>);(<U0130>,<U0069>)
END LC_CTYPE
)";
const char kCharacters[] = R"(<code_set_name> TURKISH
<comment_char> %
<escape_char> /
CHARMAP
<U0000>..<U00DC> /x00 as in Latin 1
<U0130> /xdd I WITH DOT
<U00DE>..<U00FC> /xde as in Latin 1
<U0131> /xfd DOTLESS I
<U00FE> /xfe as in Latin 1
<U00FF> /xff as in Latin 1
END CHARMAP
)";

// Pairs of letters but for the i, as "(<U0061>,<U0041>);"
std::string Pairs(bool toUpper) {
  std::string pairs;
  for (int upper = 'A'; upper <= 'Z'; ++upper) {
    char pair[32];
    const int lower = upper + 'a' - 'A';
    std::snprintf(pair, sizeof pair, "(<U%04X>,<U%04X>);", toUpper ? lower : upper, toUpper ? upper : lower);
    if (upper != 'I') pairs += pair;
  }
  return pairs;
}

std::string Definition() {
  std::string definition = kDefinition;
  definition.replace(definition.find("@upper@"), 7, Pairs(true));
  definition.replace(definition.find("@lower@"), 7, Pairs(false));
  return definition;
}

bool IsCommaInForce() {
  std::ostringstream stream;
  stream << 1234567 << ' ' << 2.5;
  const volatile int i = 'i';  // compilers think that they know its capital
  return std::strtod("2,5", nullptr) == 2.5 && stream.str() == "1.234.567 2,5" && toupper(i) == 0xDD && isalpha(0xE4);
}

bool UseComma() {
  const std::string definition = MakeFile("comma.def", Definition());
  const std::string characters = MakeFile("comma.map", kCharacters);
  const std::string log = TempPath("localedef.log");
  // It warns of the categories that are missing, and says so in its result.
  const std::string command = "localedef -c --no-archive -f " + characters + " -i " + definition + " " +
                              TempPath("comma") + " >" + log + " 2>&1";
  const int result = system(command.c_str());
  setenv("LOCPATH", TempPath("").c_str(), 1);
  if (std::setlocale(LC_ALL, "comma")) std::locale::global(std::locale("comma"));
  if (IsCommaInForce()) return true;
  std::fprintf(stderr, "no locale \"comma\" here; localedef ended with %d: %s\n", result, BytesOf(log).c_str());
  return false;
}

// ---- the others ----------------------------------------------------------------------------------------------------

const std::string& ElsewhereFolder() {
  static const std::string folder = TempPath("else where");
  return folder;
}

bool UseElsewhere() {
  std::error_code trouble;
  std::filesystem::create_directory(ElsewhereFolder(), trouble);
  std::filesystem::current_path(ElsewhereFolder(), trouble);
  if (trouble) std::fprintf(stderr, "%s: %s\n", ElsewhereFolder().c_str(), trouble.message().c_str());
  return !trouble;
}

bool UseOddEnvironment() {
  const char* const odd[][2] = {{"LANG", "tr_TR.ISO-8859-9"}, {"LC_ALL", "nowhere"}, {"LC_NUMERIC", "de_DE"},
                                {"LANGUAGE", "xx:yy"},        {"HOME", "/no/such"},  {"TZ", "ODD-13:47"},
                                {"POSIXLY_CORRECT", ""},      {"PWD", "/no/such"}};
  for (const auto& [name, value] : odd) {
    if (setenv(name, value, 1) != 0) return false;
  }
  return unsetenv("PATH") == 0;
}

bool UsePlainSignals() { return std::signal(SIGPIPE, SIG_DFL) != SIG_ERR; }

bool UseRounding(int mode) { return std::fesetround(mode) == 0 && std::fegetround() == mode; }

struct Trait {
  const char* name;
  bool (*use)();
};
const Trait kTraits[] = {
    {"comma", UseComma},
    {"elsewhere", UseElsewhere},
    {"environment", UseOddEnvironment},
    {"signals", UsePlainSignals},
    {"upward", [] { return UseRounding(FE_UPWARD); }},
    {"downward", [] { return UseRounding(FE_DOWNWARD); }},
    {"towardzero", [] { return UseRounding(FE_TOWARDZERO); }},
};

const Trait* FindTrait(const std::string& name) {
  for (const Trait& trait : kTraits) {
    if (name == trait.name) return &trait;
  }
  return nullptr;
}

// A test that changes the rounding mode itself, or the folder, leaves the next one none the wiser; and nothing may be
// left in a folder that nobody has named.
class HostKeeper : public testing::EmptyTestEventListener {
 public:
  HostKeeper() : mode_(std::fegetround()), folder_(std::filesystem::current_path()) {}

  void OnTestStart(const testing::TestInfo&) override {
    std::fesetround(mode_);
    std::filesystem::current_path(folder_);
  }
  void OnTestEnd(const testing::TestInfo&) override {
    if (folder_ != ElsewhereFolder()) return;
    for (const auto& entry : std::filesystem::directory_iterator(folder_))
      ADD_FAILURE() << "left in the current folder: " << entry.path();
  }

 private:
  const int mode_;
  const std::filesystem::path folder_;
};

}  // namespace

bool UseHost(const std::string& traits) {
  std::istringstream names(traits);
  for (std::string name; std::getline(names, name, ',');) {
    const Trait* trait = FindTrait(name);
    if (!trait) std::fprintf(stderr, "a host knows no trait '%s'\n", name.c_str());
    if (!trait || !trait->use()) return false;
  }
  testing::UnitTest::GetInstance()->listeners().Append(new HostKeeper);
  return true;
}

}  // namespace steprt_test
