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

bool IsCommaInForce() {
  std::ostringstream stream;
  stream << 1234567 << ' ' << 2.5;
  const volatile int i = 'i';  // compilers think that they know its capital
  return std::strtod("2,5", nullptr) == 2.5 && stream.str() == "1.234.567 2,5" && toupper(i) == 0xDD && isalpha(0xE4);
}

// From comma.def and comma.map beside this file.
bool UseComma() {
  const std::string log = TempPath("localedef.log");
  // It warns of the categories that are missing, and says so in its result.
  const std::string command = "localedef -c --no-archive -f " STEPRT_TEST_FOLDER
                              "/host/comma.map -i " STEPRT_TEST_FOLDER
                              "/host"
                              "/comma.def " +
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
