// Every allocation of every operation fails once, alone and with all after it: no crash, no leak, an outcome that is
// the whole one or shows the loss, a model that can be walked and written, and the same operation works as soon as
// there is memory again. Expat's memory comes by the same operators, so its allocations fail as the library's do.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <filesystem>

#include "platform/sax.h"
#include "support/chain.h"
#include "support/failing_new.h"
#include "support/repeat.h"
#include "support/soundness.h"
#include "xml/documents.h"

namespace {

using namespace steprt_test;

struct Scenario {
  const char* name;
  int least;                          // allocations that it makes, so that a row that sweeps none is seen
  int transfer;                       // the last one for a transfer: each later failure is told; 0: none is made
  void (*prepare)(ProjModel& model);  // with memory
  Outcome (*run)(ProjModel& model);
  bool (*shows)(const Outcome& outcome, const Outcome& sound);  // whether it tells of its loss, as far as it has to
};

// ---- reads ---------------------------------------------------------------------------------------------------------

const char kRecords[] =
    "#1=WALL('a',1.5,#3,(#1,#8),(1,2.5),.T.);\n#2=DOOR(#1);#3=PERSON(7);#5=OTHER();#3=PERSON(8);\n"
    "#6=SAMPLE('t',1,2.,.T.,.U.,.RED.,#9,#7,(#1,#2,#8),(1,2,3),(.RED.,.BLUE.),());#7=DOOR(#6);#8=DOOR($);#9=NOTE('n');"
    "\n"
    "#900000=NOTE('n');#1000000000=SAMPLE($,1,2.,$,$,$,#900000,$,$,(),(),());";
const char kSelects[] = "#1=SAMPLE('t',1,2.,.T.,.U.,.RED.,#2,#2,(),(),(),());#2=NOTE('n');";
const char kTexts[] = "#1=SAMPLE('t',1,2.,.T.,.U.,.RED.,'select',$,(),(1,2),(.RED.),('a','b'));";

// Forward references, names and texts that outgrow their rooms, more children than are walked, and declarations that
// Expat remembers.
std::string Document() {
  const std::string text(5'000, 'x');
  return "<?xml version='1.0' encoding='windows-1252'?><!DOCTYPE PROJ [<!ENTITY e 'entity'><!ATTLIST DOOR d CDATA "
         "#IMPLIED>]><PROJ xmlns='urn:x'><" +
         std::string(1300, 'n') + " rid='#90" + std::string(700, ' ') + "'/><SAMPLE rid='#1'>" + Repeat(40, "<x@/>") +
         "<Text>&e;" + text +
         "</Text><Bool>.T.</Bool><Log>.U.</Log><Enum>.RED.</Enum><Sel>1</Sel><Ref>#3</Ref>"
         "<Refs>#2 #3</Refs><Reals>1;2;3</Reals></SAMPLE>"
         "<SAMPLE rid='#4'><Bool>.T.</Bool><Log>.U.</Log><Enum>.RED.</Enum><Sel>#1000000000</Sel></SAMPLE>"
         "<WALL rid='#2'><Name>" +
         text +
         "</Name><External>.T.</External></WALL><DOOR rid='#3'><Host>#2</Host></DOOR><DOOR rid='#1000000000'/></PROJ>";
}

const char kDocumentOfTexts[] =
    "<PROJ><SAMPLE rid='#1'><Bool>.T.</Bool><Log>.U.</Log><Enum>.RED.</Enum><Sel>'select'</Sel>"
    "<Texts>'a';'b'</Texts></SAMPLE></PROJ>";

std::string InputPath() { return TempPath("memory.stp"); }

void MakeRecords(ProjModel&) { MakeFile("memory.stp", InFrame(kRecords)); }
void MakeSelects(ProjModel&) { MakeFile("memory.stp", InFrame(kSelects)); }
void MakeTexts(ProjModel&) { MakeFile("memory.stp", InFrame(kTexts)); }
void MakeDocument(ProjModel&) { MakeFile("memory.stp", Document()); }
void MakeDocumentOfTexts(ProjModel&) { MakeFile("memory.stp", kDocumentOfTexts); }

Outcome OutcomeOf(int result, ProjModel& model) { return {result, TakeReports(InputPath()), Population(model)}; }

int ReadIt(ProjModel& model) {
  CurrentModel(&model);
  const int result = STEPread(InputPath().data(), ProjSchema(), false);
  CurrentModel(nullptr);
  return result;
}

Outcome ReadClearText(ProjModel& model) {
  const int result = ReadIt(model);
  return OutcomeOf(result, model);
}

Outcome ReadEitherForm(ProjModel& model) {
  const int result = model.Read(false, InputPath().data());
  return OutcomeOf(result, model);
}

Outcome ReadDocumentInMemory(ProjModel& model) {
  const std::string document = BytesOf(InputPath());
  model.Name(InputPath().c_str());
  const int result = model.ReadXml(document.c_str());
  return OutcomeOf(result, model);
}

Outcome ReadByIndex(ProjModel& model) {
  model.PrepareHash();
  const int result = ReadIt(model);
  model.RemoveHash();
  return OutcomeOf(result, model);
}

// What is reported beyond what the sound one reports.
Texts NewReports(const Outcome& outcome, const Outcome& sound) {
  Texts reports = outcome.reports;
  for (const std::string& each : sound.reports) std::erase(reports, each);
  return reports;
}

bool Tells(const std::string& report) {
  const auto says = [&](const char* words) { return report.find(words) != std::string::npos; };
  return says("]Out of memory") || says("]File not found") || says("out of memory") || says("Can't open file");
}

// No list of these files holds a null.
bool HasHole(const std::string& instance) {
  for (std::size_t at = 0; (at = instance.find('[', at)) != std::string::npos; ++at) {
    if (instance.find("null", at) < instance.find(']', at)) return true;
  }
  return false;
}

// A transfer that cannot be made is told by the result, if at all.
bool IsNothing(const Outcome& outcome, const Outcome& sound) {
  const Texts& left = outcome.population;  // of a write, the file
  const bool isNoRead = left.empty() && (outcome.result == 0 || outcome.result == 1);
  const bool isNoWrite = (left == Texts{"before"} || left == Texts{"(none)"}) && outcome.result == -1;
  return NewReports(outcome, sound).empty() && (isNoRead || isNoWrite);
}

// The first report tells of memory. Others may follow from the loss: a list that cannot be made leaves its items to the
// next reader.
bool IsTold(const Outcome& outcome, const Outcome& sound) {
  const Texts reports = NewReports(outcome, sound);
  return !reports.empty() && Tells(reports[0]);
}

bool IsCounted(const Outcome& outcome) { return outcome.result == static_cast<int>(outcome.reports.size()); }

bool IsToldAndCounted(const Outcome& outcome, const Outcome& sound) {
  const bool holed = std::any_of(outcome.population.begin(), outcome.population.end(), HasHole);
  return IsTold(outcome, sound) && !holed && IsCounted(outcome);
}

// Nobody reports the loss of the one text that a select or a list would hold. Nothing else may be missing then.
bool LosesATextOrTells(const Outcome& outcome, const Outcome& sound) {
  for (const auto& [held, left] :
       {std::pair{"text 'select'", "none"}, {"text ''select''", "none"}, {"'a',", ""}, {",'b'", ""}}) {
    Outcome less = sound;
    const std::size_t at = less.population[0].find(held);
    if (at == std::string::npos) continue;
    less.population[0].replace(at, std::strlen(held), left);
    if (outcome == less) return true;
  }
  return IsTold(outcome, sound) && (IsCounted(outcome) || outcome.result == -1);
}

// A model that stays empty is read into as XML, which clear text is not, and which may not even begin without memory.
bool IsToldInEitherForm(const Outcome& outcome, const Outcome& sound) {
  if (!outcome.population.empty()) return IsToldAndCounted(outcome, sound);
  Texts reports = NewReports(outcome, sound);
  const bool isNoXml = !reports.empty() && reports.back() == "not well-formed (invalid token) (line 1, column 13)";
  if (isNoXml) reports.pop_back();
  return outcome.result == (isNoXml ? -1 : 0) && (reports.empty() || Tells(reports[0]));
}

// The pass in clear text, which finds no STEP file, may be what cannot be made. The document is read all the same.
bool IsWholeOrTold(const Outcome& outcome, const Outcome& sound) {
  return outcome == Outcome{sound.result, {}, sound.population} || IsTold(outcome, sound);
}

// An index without the node of a row does not find it by its name, or by its type.
bool MissesARowOrTells(const Outcome& outcome, const Outcome& sound) {
  const Texts reports = NewReports(outcome, sound);
  if (reports.empty() || !IsCounted(outcome)) return false;
  const bool isByName = reports[0].find("]Unknown entity ") != std::string::npos;
  const bool isByType = reports[0].find("]Reference to wrong object type ''") != std::string::npos;
  return isByName || isByType || IsToldAndCounted(outcome, sound);
}

// ---- writes --------------------------------------------------------------------------------------------------------

template <bool isOverAFile>
void FillToWrite(ProjModel& model) {
  ReadBytes(model, InFrame(kRecords));
  const std::string path = MakeFile("written.stp", "before");
  if (!isOverAFile) std::filesystem::remove(path);
}

// The name takes memory of its own when it is written into the file.
template <int (STEPmodel::*write)(char*, const char*)>
Outcome Write(ProjModel& model) {
  std::string path = TempPath(std::string(600, '/') + "written.stp");
  const int result = (model.*write)(path.data(), "");
  return {result, TakeReports(path), {MaskedBytesOf(path)}};
}

// And what is there is as it was.
template <bool isOverAFile>
bool IsRefused(const Outcome& outcome, const Outcome&) {
  const bool isTold = outcome.reports == Texts{"(1) [Write]Can't create file"};
  return outcome.result == -1 && isTold && outcome.population == Texts{isOverAFile ? "before" : "(none)"};
}

// ---- queries, edits and schemas ------------------------------------------------------------------------------------

void Fill(ProjModel& model) {
  ReadBytes(model, InFrame("#1=DOOR($);#2=WALL($,1.,$,(),(),.T.);#3=PERSON(1);#4=DOOR($);#5=PRODUCT();#6=DOOR($);"));
}

// `query` asks the model or an aggregate of all its instances, for products and what is below them.
template <STEPaggr* (*query)(STEPmodel&, STEPaggr*)>
Outcome Ask(ProjModel& model) {
  STEPaggr all;
  for (STEPheader* each = model.first; each; each = each->next) {
    auto* node = new STEPlist;
    node->value.object = each;
    node->next = all.head;
    all.head = node;
  }
  STEPaggr* found = query(model, &all);
  Outcome outcome = {found ? found->GetMemberCount() : -1, {}, {}};
  for (const STEPlist* node = found ? found->head : nullptr; node; node = node->next) {
    outcome.population.push_back(std::to_string(node->value.object->type));
  }
  if (found) DeleteSTEPlist(&found->head);
  delete found;
  DeleteSTEPlist(&all.head);
  return outcome;
}

STEPaggr* AskList(STEPmodel& model, STEPaggr*) { return new STEPaggr{model.GetSTEPlist(kProduct, 9)}; }
STEPaggr* AskModel(STEPmodel& model, STEPaggr*) { return model.GetSTEPaggr(kProduct, 9); }
STEPaggr* AskModelAll(STEPmodel& model, STEPaggr*) { return model.GetSTEPaggrAll(kProduct); }
STEPaggr* AskSource(STEPmodel& model, STEPaggr* all) { return model.GetSTEPaggr(all, kProduct, 9); }
STEPaggr* AskSourceAll(STEPmodel& model, STEPaggr* all) { return model.GetSTEPaggrAll(all, kProduct); }

bool IsNoneOrShorter(const Outcome& outcome, const Outcome& sound) {
  const Texts& found = outcome.population;
  return outcome.result == -1 ||
         (found.size() < sound.population.size() && std::equal(found.begin(), found.end(), sound.population.begin()));
}

// Of a list, an insert that fails says so; of a text, the copy is empty.
Outcome Edit(ProjModel& model) {
  STEPheader* const door = model.first;
  STEPheader* const wall = door->next;
  STEPaggr aggr;
  aggr.Append(wall);
  aggr.Prepend(door);
  const int count = aggr.GetMemberCount();
  const int inserted = aggr.InsertAfter(wall, door) + aggr.InsertBefore(wall, door);
  Outcome outcome = {aggr.GetMemberCount(), {}, {}};
  EXPECT_EQ(outcome.result, count + inserted);
  aggr.Delete(wall);
  EXPECT_EQ(aggr.IsMember(wall), -1);
  DeleteSTEPlist(&aggr.head);
  STEPselect select;
  select.SetCharPtr(new char[2]{'a', 0});
  STEPselect copy(select);
  STEPstring text("longer than no text");
  STEPstring other(text);
  other = "and longer than that other one";
  const bool isText = copy.Type() == STEPselect::SEL_TEXT;
  outcome.population = {isText ? copy.GetCharPtr() : "", static_cast<char*>(text), static_cast<char*>(other)};
  return outcome;
}

bool IsLess(const Outcome& outcome, const Outcome& sound) {
  for (std::size_t i = 0; i < outcome.population.size(); ++i) {
    if (!outcome.population[i].empty() && outcome.population[i] != sound.population[i]) return false;
  }
  return outcome.result <= sound.result;
}

const Chain& DeepChain() {
  static const Chain chain = [] {
    Schema deep{"S", {{"E0", 0}}};
    for (int i = 1; i <= 40; ++i) deep.rows.push_back({"E" + std::to_string(i), i, "E" + std::to_string(i - 1)});
    return Chain({deep});
  }();
  return chain;
}

Outcome ExtractByIndex(ProjModel&) {
  Model model(DeepChain().Head());
  CurrentModel(nullptr);
  model.PrepareHash();
  int types[50];
  Outcome outcome = {ExtractTypes(DeepChain().Head(), 0, types, 50, 50), {}, {}};
  for (int i = 0; i < outcome.result; ++i) outcome.population.push_back(std::to_string(types[i]));
  return outcome;
}

// The schema comes in between two records of a read, by a model that joins.
void MakeJoin(ProjModel&) {
  MakeFile("memory.stp",
           InFrame("#1=LATE();\n#2=DOOR(#3);#3=WALL($,1.,$,(),(),.T.);#4=PROBE();\n#5=LATE();#6=DOOR(#3);"));
}

Outcome Join(ProjModel& model) {
  static const Chain late({{"LATER", {{"LATE", 99}}}});
  Model other(late.Head());
  STEPlib library(const_cast<char*>(STEPRT_TEST_MODULES "/holed.so"));
  HINSTANCE module = nullptr;
  SetProbe({"", -1, [&](STEPtransfer*) -> STEPheader* {
              model.AddModel(&other);
              model.SetLib(&library);
              module = model.AttachDll(STEPRT_TEST_MODULES "/attached.so", "Accept");
              return nullptr;
            }});
  Outcome outcome = ReadClearText(model);
  SetProbe({});
  const bool joined = model.GetLib("proj") == &library && library.LibOpen() && module && model.schema->next->next;
  EXPECT_TRUE(joined || outcome.population.empty());
  model.SetLib(nullptr);
  model.schema->next->next = nullptr;
  if (module) dlclose(module);
  return outcome;
}

// ---- the sweep -----------------------------------------------------------------------------------------------------

const Scenario kScenarios[] = {
    {"a read of clear text", 20, 2, MakeRecords, ReadClearText, IsToldAndCounted},
    {"a read of selects", 5, 2, MakeSelects, ReadClearText, IsToldAndCounted},
    {"a read of texts", 5, 2, MakeTexts, ReadClearText, LosesATextOrTells},
    {"a read of either form", 20, 2, MakeRecords, ReadEitherForm, IsToldInEitherForm},
    {"a read by an index", 20, 19, MakeRecords, ReadByIndex, MissesARowOrTells},
    {"a document read as either form", 60, 5, MakeDocument, ReadEitherForm, IsWholeOrTold},
    {"a document read from memory", 60, 2, MakeDocument, ReadDocumentInMemory, IsTold},
    {"a document of texts", 20, 2, MakeDocumentOfTexts, ReadDocumentInMemory, LosesATextOrTells},
    {"a write of clear text", 3, 1, FillToWrite<true>, Write<&STEPmodel::Write>, IsRefused<true>},
    {"a write of clear text where no file is", 3, 1, FillToWrite<false>, Write<&STEPmodel::Write>, IsRefused<false>},
    {"a write of XML", 3, 1, FillToWrite<true>, Write<&STEPmodel::WriteXml>, IsRefused<true>},
    {"a write of XML where no file is", 3, 1, FillToWrite<false>, Write<&STEPmodel::WriteXml>, IsRefused<false>},
    {"GetSTEPlist", 4, 0, Fill, Ask<AskList>, IsNoneOrShorter},
    {"GetSTEPaggr", 5, 0, Fill, Ask<AskModel>, IsNoneOrShorter},
    {"GetSTEPaggrAll", 5, 0, Fill, Ask<AskModelAll>, IsNoneOrShorter},
    {"GetSTEPaggr of an aggregate", 5, 0, Fill, Ask<AskSource>, IsNoneOrShorter},
    {"GetSTEPaggrAll of an aggregate", 5, 0, Fill, Ask<AskSourceAll>, IsNoneOrShorter},
    {"edits", 8, 0, Fill, Edit, IsLess},
    {"an index and its types", 80, 0, [](ProjModel&) {}, ExtractByIndex, IsLess},
    {"schemas that join a read", 10, 2, MakeJoin, Join, IsTold},
};

// One try, on a model of its own. False when the scenario made fewer allocations.
bool Try(const Scenario& each, long nth, FailingNew::Extent extent, const Outcome& sound) {
  ProjModel model;
  each.prepare(model);
  auto failing = std::make_unique<FailingNew>(nth, extent);
  const Outcome outcome = each.run(model);
  const bool hasFailed = failing->HasFailed();
  failing.reset();
  const bool shows = each.shows(outcome, sound) || (nth <= each.transfer && IsNothing(outcome, sound));
  EXPECT_TRUE(outcome == sound || (hasFailed && shows)) << outcome;
  model.SetChanged(false);
  ExpectSound(model);
  EXPECT_NE(model.Write(TempPath("left.stp").data(), ""), -1);
  TakeReports("");
  model.Delete();
  each.prepare(model);
  EXPECT_EQ(each.run(model), sound) << "with memory again";
  return hasFailed;
}

void Sweep(const Scenario& each, FailingNew::Extent extent) {
  ProjModel model;
  each.prepare(model);
  const Outcome sound = each.run(model);
  bool hasFailed = true;
  for (long nth = 1; hasFailed; ++nth) {
    SCOPED_TRACE(each.name + (", allocation " + std::to_string(nth)) + (extent ? " and all behind it" : ""));
    const long blocks = LiveBlocks();
    const int handle = NextHandle();
    hasFailed = Try(each, nth, extent, sound);
    ASSERT_EQ(LiveBlocks(), blocks);
    ASSERT_EQ(NextHandle(), handle);
    ASSERT_TRUE(hasFailed || nth > each.least) << "it makes fewer than it is thought to";
  }
}

TEST(OutOfMemory, NoAllocationThatFailsHurtsOrIsLostInSilence) {
  for (const Scenario& each : kScenarios) {
    if (std::string(each.name).find("document") != std::string::npos && !steprt::saxService) continue;
    for (const auto extent : {FailingNew::kAlone, FailingNew::kAndAllBehind}) Sweep(each, extent);
  }
}

TEST(OutOfMemory, ANameThatCannotBeCompletedIsNotOpenedCut) {
  const std::string folder = TempPath("");
  std::string name = folder + std::string(490 - folder.size(), '/') + std::string(60, 'n');
  const FailingNew failing(1, FailingNew::kAndAllBehind);
  EXPECT_EQ(STEPwrite(name.data(), "", nullptr, ProjSchema()), -1);
  EXPECT_EQ(STEPread(name.data(), ProjSchema(), false), 1);
  TakeReports("");
  EXPECT_EQ(BytesOf(name.substr(0, 511)), "(none)");  // what fits without memory
}

}  // namespace
