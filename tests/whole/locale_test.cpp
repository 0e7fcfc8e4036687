// A host whose locale has a decimal comma and groups its digits changes nothing, in neither direction. The machine need
// not know such a locale: one is made here.
#include <gtest/gtest.h>
#include <stdlib.h>

#include <clocale>

#include "support/proj_schema.h"
#include "support/temp_files.h"

namespace {

using namespace steprt_test;

const char kDefinition[] =
    "comment_char %\nescape_char /\nLC_NUMERIC\ndecimal_point \"<U002C>\"\nthousands_sep \"<U002E>\"\ngrouping 3;3\n"
    "END LC_NUMERIC\n";
const char kCharacters[] =
    "<code_set_name> ASCII\n<comment_char> %\n<escape_char> /\nCHARMAP\n<U0000>..<U007F> /x00 ASCII\nEND CHARMAP\n";

// The locale "comma" for its own life.
class CommaLocale {
 public:
  CommaLocale() {
    const std::string definition = MakeFile("comma.def", kDefinition);
    const std::string characters = MakeFile("ascii.map", kCharacters);
    const std::string folder = TempPath("comma");
    // It warns of the categories that are missing, and says so in its result.
    const std::string command = "localedef -c --no-archive -f " + characters + " -i " + definition + " " + folder;
    made_ = system((command + " >/dev/null 2>&1").c_str()) != -1;
    setenv("LOCPATH", TempPath("").c_str(), 1);
    made_ = made_ && std::setlocale(LC_NUMERIC, "comma") != nullptr;
  }
  ~CommaLocale() {
    std::setlocale(LC_NUMERIC, "C");
    unsetenv("LOCPATH");
  }
  bool IsInForce() const { return made_ && std::strtod("2,5", nullptr) == 2.5; }

 private:
  bool made_;
};

TEST(Locale, ADecimalCommaOfTheHostChangesNothing) {
  const CommaLocale comma;
  ASSERT_TRUE(comma.IsInForce());
  const std::string data =
      "#1=POINT(2.5,1e-07,1234567);#2=SAMPLE('',-1000000,12345.5,$,$,$,-0.25,$,(),(1.5,-2),(),());";
  ProjModel model;
  EXPECT_EQ(
      ReadBytes(model, InFrame(data)).population,
      (Texts{"POINT(2.5,1e-07,1234567)", "SAMPLE('',-1000000,12345.5,F,-1,0,real -0.25,null,[],[1.5,-2],[],[])"}));
  std::string path = TempPath("comma.stp");
  EXPECT_EQ(model.Write(path.data(), ""), 2);
  EXPECT_NE(BytesOf(path).find("\n#1 = POINT(2.5,1e-07,1.23457e+06);\n"
                               "#2 = SAMPLE('',-1000000,12345.5,.F.,.U.,.RED.,-0.25,$,(),(1.5,-2),(),());\n"),
            std::string::npos)
      << BytesOf(path);
  // A comma parts attributes, whatever it is to the host.
  EXPECT_EQ(ReadData("#1=POINT(2,5,7.);").population, Texts{"POINT(2,5,7)"});
  std::string document = TempPath("comma.xml");
  EXPECT_EQ(model.WriteXml(document.data(), ""), 2);
  ProjModel back;
  back.Name(document.c_str());
  EXPECT_EQ(back.ReadXml(nullptr), 0);
  EXPECT_EQ(back.FindFirst(kPoint) ? static_cast<Entity*>(back.FindFirst(kPoint))->values[0].real : 0.0, 2.5);
}

}  // namespace
