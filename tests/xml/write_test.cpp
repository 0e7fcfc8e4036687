// The documents that are written, byte for byte.
#include <gtest/gtest.h>

#include <algorithm>

#include "support/faulty_calls.h"
#include "xml/documents.h"
#include "xml/xml_writer.h"

namespace {

using namespace steprt_test;

const char kHead[] =
    "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\n"
    "<!-- FILE_DESCRIPTION(('PROJ model', 'TOVARIN version 7, 7, 10, 29','QVN','')); -->\n"
    "<!-- FILE_NAME('PATH','DATE'); -->\n"
    "<PROJ>\n";

// What a PROBE writes by this function, as the line of its element.
std::string Written(std::function<void(STEPtransfer*)> write) {
  ProjModel model;
  new Entity(kProbe, &model);
  SetProbe({"", -1, {}, std::move(write)});
  const std::string line = FirstEntity(WrittenDocument(model));
  SetProbe({});
  return line;
}

// A list that goes with its test. It owns nothing but its nodes.
class List {
 public:
  List() = default;
  explicit List(const std::vector<double>& reals) {
    for (const double real : reals) Add().real = real;
  }
  explicit List(const std::vector<const char*>& texts) {
    for (const char* text : texts) Add().text = const_cast<char*>(text);
  }
  explicit List(const std::vector<STEPheader*>& objects) {
    for (STEPheader* object : objects) Add().object = object;
  }
  ~List() { DeleteSTEPlist(&aggr_.head); }
  List(const List&) = delete;
  List& operator=(const List&) = delete;
  STEPaggr* Get() { return &aggr_; }

 private:
  decltype(STEPlist::value)& Add() {
    *tail_ = new STEPlist;
    STEPlist* node = *tail_;
    tail_ = &node->next;
    return node->value;
  }

  STEPaggr aggr_;
  STEPlist** tail_ = &aggr_.head;
};

TEST(XmlWrite, AnEmptyModelIsTheFrame) {
  ProjModel model;
  EXPECT_EQ(WrittenDocument(model), std::string(kHead) + "</PROJ>\n");
  std::string path = TempPath("written.xml");
  EXPECT_EQ(model.WriteXml(path.data(), nullptr), 0);
}

TEST(XmlWrite, AWholeDocument) {
  ProjModel model;
  ReadBytes(model,
            InFrame("#9=SAMPLE('A & <B>',-7,2.5,.T.,.U.,.GREEN.,#4,#4,(#5),(1,2.5,0.00001),(.RED.),('x','y''z'));"
                    "#4=WALL('',1000000.,$,(#5,$),(),.F.);#5=DOOR(#4);#6=POINT(1,2,3);#7=PERSON(41);"));
  EXPECT_EQ(WrittenDocument(model, "a 'remark'"),
            "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\n"
            "<!-- FILE_DESCRIPTION(('PROJ model', 'TOVARIN version 7, 7, 10, 29','QVN','a 'remark'')); -->\n"
            "<!-- FILE_NAME('PATH','DATE'); -->\n"
            "<PROJ>\n"
            "\t<SAMPLE rid=\"#1\"><Text>A &amp; &lt;B&gt;</Text><Int>-7</Int><Real>2.5</Real><Bool>.T.</Bool>"
            "<Log>.U.</Log><Enum>.GREEN.</Enum><Sel>#2</Sel><Ref>#2</Ref><Refs>#3</Refs><Reals>1;2.5;1e-05</Reals>"
            "<Texts>'x';'y'z'</Texts></SAMPLE>\n"
            "\t<WALL rid=\"#2\"><Name></Name><Height>1e+06</Height><Owner>$</Owner><Doors>#3 $</Doors>"
            "<Layers></Layers><External>.F.</External></WALL>\n"
            "\t<DOOR rid=\"#3\"><Host>#2</Host></DOOR>\n"
            "\t<POINT rid=\"#4\"><X>1</X><Y>2</Y><Z>3</Z></POINT>\n"
            "\t<PERSON rid=\"#5\"><Age>41</Age></PERSON>\n"
            "</PROJ>\n");
}

TEST(XmlWrite, EveryValueHasItsElement) {
  STEPselect none, integer, real, text, noText, noObject;
  integer.SetInt(-3);
  real.SetReal(2);
  text.SetCharPtr(new char[4]{'a', '<', 'b', '\0'});
  noText.SetCharPtr(nullptr);
  noObject.SetSTEPobj(nullptr);
  struct Row {
    std::function<void(STEPtransfer*)> write;
    const char* element;
  };
  const Row rows[] = {
      {[](STEPtransfer* t) { wSTEPint(t, "n", -2147483647 - 1); }, "<n>-2147483648</n>"},
      {[](STEPtransfer* t) { wSTEPreal(t, "n", 1.0); }, "<n>1</n>"},
      {[](STEPtransfer* t) { wSTEPreal(t, "n", 1234567.0); }, "<n>1.23457e+06</n>"},
      {[](STEPtransfer* t) { wSTEPreal(t, "n", -0.000012345678); }, "<n>-1.23457e-05</n>"},
      {[](STEPtransfer* t) { wSTEPbool(t, "n", true); }, "<n>.T.</n>"},
      {[](STEPtransfer* t) { wSTEPbool(t, "n", false); }, "<n>.F.</n>"},
      {[](STEPtransfer* t) { wSTEPlog(t, "n", -1); }, "<n>.U.</n>"},
      {[](STEPtransfer* t) { wSTEPlog(t, "n", 0); }, "<n>.F.</n>"},
      {[](STEPtransfer* t) { wSTEPlog(t, "n", 1); }, "<n>.T.</n>"},
      {[](STEPtransfer* t) { wSTEPlog(t, "n", 2); }, "<n>.U.</n>"},
      {[](STEPtransfer* t) { wSTEPenum(t, "n", 2, kColours); }, "<n>.BLUE.</n>"},
      {[](STEPtransfer* t) { wSTEPtext(t, "n", "a<b&c>\"d'e"); }, "<n>a&lt;b&amp;c&gt;\"d'e</n>"},
      {[](STEPtransfer* t) { wSTEPtext(t, "n", "&&<<"); }, "<n>&amp;&amp;&lt;&lt;</n>"},
      {[](STEPtransfer* t) { wSTEPtext(t, "n", "\xe9\x80\\"); }, "<n>\xe9\x80\\</n>"},
      {[](STEPtransfer* t) { wSTEPtext(t, "n", ""); }, "<n></n>"},
      {[](STEPtransfer* t) { wSTEPtext(t, "n", nullptr); }, "<n>$</n>"},
      {[](STEPtransfer* t) { xwSTEPref(t, "n", nullptr); }, "<n>$</n>"},
      {[](STEPtransfer* t) { wSTEPsel(t, "n", nullptr); }, "<n>$</n>"},
      {[&](STEPtransfer* t) { wSTEPsel(t, "n", &none); }, "<n>$</n>"},
      {[&](STEPtransfer* t) { wSTEPsel(t, "n", &integer); }, "<n>-3</n>"},
      {[&](STEPtransfer* t) { wSTEPsel(t, "n", &real); }, "<n>2</n>"},
      {[&](STEPtransfer* t) { wSTEPsel(t, "n", &text); }, "<n>a&lt;b</n>"},
      {[&](STEPtransfer* t) { wSTEPsel(t, "n", &noText); }, "<n>$</n>"},
      {[&](STEPtransfer* t) { wSTEPsel(t, "n", &noObject); }, "<n>$</n>"},
      {[](STEPtransfer*) {}, ""},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(Written(row.write), "<PROBE rid=\"#1\">" + std::string(row.element) + "</PROBE>");
  }
}

TEST(XmlWrite, ListsHaveSeparatorsBetweenTheirItemsAlone) {
  ProjModel model;
  auto* wall = new Entity(kWall, &model);
  auto* door = new Entity(kDoor, &model);
  List empty;
  List one(std::vector<double>{1});
  List reals(std::vector<double>{1, 2.5, 0.00001});
  List texts(std::vector<const char*>{"a&b", "", "it's"});
  List holed(std::vector<const char*>{"a", nullptr, "b"});
  List objects(std::vector<STEPheader*>{door, nullptr, wall, door});
  struct Row {
    std::function<void(STEPtransfer*)> write;
    const char* element;
  };
  const Row rows[] = {
      {[](STEPtransfer* t) { xwSTEPaggr(t, "n", nullptr); }, "<n></n>"},
      {[](STEPtransfer* t) { xwSTEPaggrPrim(t, "n", nullptr); }, "<n></n>"},
      {[](STEPtransfer* t) { xwSTEPtextAggr(t, "n", nullptr); }, "<n></n>"},
      {[&](STEPtransfer* t) { xwSTEPaggr(t, "n", empty.Get()); }, "<n></n>"},
      {[&](STEPtransfer* t) { xwSTEPaggrPrim(t, "n", empty.Get()); }, "<n></n>"},
      {[&](STEPtransfer* t) { xwSTEPtextAggr(t, "n", empty.Get()); }, "<n></n>"},
      {[&](STEPtransfer* t) { xwSTEPaggrPrim(t, "n", one.Get()); }, "<n>1</n>"},
      {[&](STEPtransfer* t) { xwSTEPaggrPrim(t, "n", reals.Get()); }, "<n>1;2.5;1e-05</n>"},
      {[&](STEPtransfer* t) { xwSTEPtextAggr(t, "n", texts.Get()); }, "<n>'a&amp;b';'';'it's'</n>"},
      {[&](STEPtransfer* t) { xwSTEPtextAggr(t, "n", holed.Get()); }, "<n>'a';$;'b'</n>"},
      {[&](STEPtransfer* t) { xwSTEPaggr(t, "n", objects.Get()); }, "<n>#2 $ #3 #2</n>"},
      {[&](STEPtransfer* t) { xwSTEPaggrEnum(t, one.Get(), kColours); }, ""},
      {[&](STEPtransfer* t) { xwSTEPaggrEnum(t, nullptr, kColours); }, ""},
  };
  for (const Row& row : rows) {
    wall->number = door->number = 0;
    EXPECT_EQ(Written(row.write), "<PROBE rid=\"#1\">" + std::string(row.element) + "</PROBE>");
  }
}

TEST(XmlWrite, NumbersWithoutANameStandBare) {
  STEPselect select;
  select.SetInt(7);
  EXPECT_EQ(Written([&](STEPtransfer* t) {
              wSTEPint(t, nullptr, 1);
              wSTEPtext(t, "n", "x");
              wSTEPreal(t, nullptr, 2.5);
              wSTEPsel(t, nullptr, &select);
            }),
            "<PROBE rid=\"#1\">1<n>x</n>,2.5,7</PROBE>");
}

TEST(XmlWrite, NamesOfAnyLengthGoOutWhole) {
  for (const std::size_t length : {1u, 61u, 62u, 63u, 64u, 1'000u, 70'000u}) {
    const std::string name(length, 'n');
    EXPECT_EQ(Written([&](STEPtransfer* t) { wSTEPint(t, name.c_str(), 1); }),
              "<PROBE rid=\"#1\"><" + name + ">1</" + name + "></PROBE>");
  }
}

TEST(XmlWrite, TextsOfAnyLengthAreEscaped) {
  for (const std::size_t length : {51u, 52u, 256u, 257u, 65'536u, 200'000u}) {
    const std::string text(length, '&');
    std::string escaped;
    for (std::size_t i = 0; i < length; ++i) escaped += "&amp;";
    EXPECT_EQ(Written([&](STEPtransfer* t) {
                wSTEPtext(t, "n", text.c_str());
                wSTEPint(t, "m", 1);
              }),
              "<PROBE rid=\"#1\"><n>" + escaped + "</n><m>1</m></PROBE>");
  }
}

TEST(XmlWrite, NumbersAreGivenOutAtFirstNeedAndAnew) {
  ProjModel model;
  ReadBytes(model, InFrame("#10=DOOR(#30);#20=DOOR(#30);#30=WALL('',0.,$,(),(),.T.);"));
  model.Inst()->number = 77;
  const std::string wall = "<Name></Name><Height>0</Height><Owner>$</Owner><Doors></Doors><Layers></Layers>";
  EXPECT_EQ(WrittenDocument(model), kHead + ("\t<DOOR rid=\"#1\"><Host>#2</Host></DOOR>\n"
                                             "\t<DOOR rid=\"#3\"><Host>#2</Host></DOOR>\n"
                                             "\t<WALL rid=\"#2\">" +
                                             wall + "<External>.T.</External></WALL>\n</PROJ>\n"));
  EXPECT_EQ(model.Inst()->number, 1);
}

TEST(XmlWrite, InstancesWithoutARowOrAWriteFunctionAreLeftOut) {
  ProjModel model;
  ReadBytes(model, InFrame("#1=PERSON(1);#2=NOTE('a');#3=PERSON(2);#4=PERSON(3);"));
  model.Inst()->next->next->type = 99;
  std::string path = TempPath("left.xml");
  EXPECT_EQ(model.WriteXml(path.data(), nullptr), 2);
  EXPECT_EQ(TakeReports(path), Texts{"(6) [PERSON]Unknown STEP object"});
  model.Inst()->type = 98;
  EXPECT_EQ(model.WriteXml(path.data(), nullptr), 1);
  EXPECT_EQ(TakeReports(path), (Texts{"(5) [Write]Unknown STEP object", "(5) [Write]Unknown STEP object"}));
  EXPECT_EQ(model.Inst()->next->number, 0);
}

TEST(XmlWrite, TheNameOfTheFileIsSafeInsideAComment) {
  const std::pair<const char*, const char*> rows[] = {{"a--b.xml", "a_-b.xml"},
                                                      {"a---b.xml", "a__-b.xml"},
                                                      {"a-b.xml-", "a-b.xml-"},
                                                      {"x.--", "x._-"},
                                                      {"it's & <x>.xml", "it's & <x>.xml"}};
  ProjModel model;
  for (const auto& [name, shown] : rows) {
    std::string path = TempPath(name);
    EXPECT_EQ(model.WriteXml(path.data(), nullptr), 0);
    EXPECT_NE(BytesOf(path).find("<!-- FILE_NAME('" + TempPath(shown) + "','"), std::string::npos) << name;
    model.Name(path.c_str());
    EXPECT_EQ(model.ReadXml(nullptr), 0) << name;
  }
}

TEST(XmlWrite, AnEndingThatIsAddedIsNotShown) {
  ProjModel model;
  std::string bare = TempPath("bare");
  EXPECT_EQ(model.WriteXml(bare.data(), nullptr), 0);
  EXPECT_NE(BytesOf(bare + ".stp").find("<!-- FILE_NAME('" + bare + "','"), std::string::npos);
  const std::string longName = TempPath(std::string(250, 'n'));
  model.Name(longName.c_str());
  EXPECT_EQ(model.WriteXml(nullptr, nullptr), 0) << "with its ending the name is longer than a buffer";
  EXPECT_NE(BytesOf(model.Name() + std::string(".stp")).find(model.Name()), std::string::npos);
}

TEST(XmlWrite, AFileThatCannotBeMadeIsReported) {
  ProjModel model;
  std::string path = TempPath("missing/folder.xml");
  EXPECT_EQ(model.WriteXml(path.data(), nullptr), -1);
  EXPECT_EQ(TakeReports(path), Texts{"(1) [Write]Can't create file"});
}

TEST(XmlWrite, OnlyXmlMayBeWrittenToTheFileMeanwhile) {
  ProjModel model;
  new Entity(kProbe, &model);
  std::string path = TempPath("shared.xml");
  int document = -2;
  int clearText = -2;
  SetProbe({"", -1, {}, [&](STEPtransfer*) {
              document = ProjModel().WriteXml(path.data(), nullptr);
              clearText = ProjModel().Write(path.data(), nullptr);
            }});
  EXPECT_EQ(model.WriteXml(path.data(), nullptr), 1);
  EXPECT_EQ(document, 0);
  EXPECT_EQ(clearText, -1);
  EXPECT_EQ(TakeReports(path), Texts{"(1) [Write]Can't create file"});
  SetProbe({});
}

TEST(XmlWrite, AFailingStreamIsFoundAndTheRootIsClosedAllTheSame) {
  ProjModel model;
  ReadBytes(model, InFrame("#1=PERSON(1);#2=PERSON(2);#3=PERSON(3);"));
  std::string path = TempPath("failing.xml");
  const struct {
    long failing;
    const char* report;
    const char* end;  // of the document, from its root on
  } rows[] = {
      {1, "(5) [PERSON]error writing file", "</PROJ>\n"},
      {2, "(7) [PERSON]error writing file", "<PROJ>\n\t<PERSON rid=\"#1\"><Age>1</Age></PERSON>\n</PROJ>\n"},
  };
  for (const auto& row : rows) {
    const FaultyCalls faulty({row.failing, false, 28});
    EXPECT_EQ(model.WriteXml(path.data(), nullptr), -1) << row.failing;
    EXPECT_TRUE(faulty.HasFailed());
    EXPECT_EQ(TakeReports(path), Texts{row.report});
    const std::string bytes = BytesOf(path);
    EXPECT_EQ(bytes.substr(std::min(bytes.find("<PROJ>"), bytes.find("</PROJ>"))), row.end);
  }
}

}  // namespace
