// Standard reads and writes when memory runs out, and when the system's calls fail. Each allocation and each call fails
// once, alone and with all after it: what is lost is told, a file that is not whole does not appear, nothing leaks, and
// the same works afterwards.
#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <memory>

#include "platform/sax.h"
#include "steprt/any_record.h"
#include "support/failing_new.h"
#include "support/faulty_calls.h"
#include "support/proj_schema.h"
#include "support/repeat.h"
#include "support/soundness.h"
#include "support/temp_files.h"

namespace {

using namespace steprt_test;
using steprt::AnyRecord;

// Long tokens, large names, references to later records, complex instances, scopes, and what has no row.
std::string File() {
  const std::string text(1'000, 'x');
  return "\xEF\xBB\xBFISO-10303-21;HEADER;FILE_DESCRIPTION(('one','two'),'2;1');"
         "FILE_NAME('name','time',('Ada'),(''),'by','of','for');FILE_SCHEMA(('PROJ { 1 0 }','OTHER'));ENDSEC;"
         "ANCHOR;<a>=#1;ENDSEC;DATA('d',('PROJ'));\n"
         "#1=WALL('" +
         text +
         "',1.5,#3,(#5000000000,$),(1,2.5),.T.);/* x */#3=PERSON(7);\n"
         "#5000000000=(DOOR(#1)!MINE('" +
         text +
         "')PERSON(#77)PRODUCT(1)NONE(#3));\n"
         "#4=SAMPLE('t',1,2.,.T.,.U.,.RED.,#9,#3,(#1),(1,2,3),(.RED.,.BLUE.),());\n"
         "#5=" +
         text + "(1,'" + text + "',K(2));#6=UNKNOWN(#9,*,$);\n" + Repeat(20, "#1000@0=&SCOPE ") + "#7=PERSON(1);" +
         Repeat(20, "ENDSCOPE/#7/PERSON(@);") +
         "#9=DOOR(#404);#9=DOOR($);ENDSEC;\nDATA;#900000=PERSON(2147483648);ENDSEC;END-ISO-10303-21;";
}

struct Look {
  int result = 0;
  Texts reports;
  Texts population;
  Texts header;

  bool operator==(const Look&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Look& look) {
  out << look.result;
  for (const Texts& texts : {look.reports, look.population, look.header}) {
    for (const std::string& each : texts) out << "\n  " << each;
  }
  return out;
}

// What a client keeps of a read beside the population. A copy of a code is what the diagnostic says.
struct Told {
  Texts codes;
  int progress = 0;
};
void Diagnose(const STEPdiagnostic* d, void* context) { static_cast<Told*>(context)->codes.emplace_back(d->code); }
bool Progress(std::uint64_t /*done*/, std::uint64_t /*total*/, void* context) {
  ++static_cast<Told*>(context)->progress;
  return true;
}

Texts HeaderTexts(const STEPfileHeader& header) {
  Texts all;
  for (const STEPtexts* list : {&header.description, &header.author, &header.organization, &header.schemas}) {
    for (int i = 0; i < list->Count(); ++i) all.emplace_back(list->At(i));
  }
  for (const STEPstring* text : {&header.implementationLevel, &header.name, &header.timeStamp,
                                 &header.preprocessorVersion, &header.originatingSystem, &header.authorization}) {
    all.emplace_back(static_cast<const char*>(*text));
  }
  return all;
}

// Each record of an entity without a row, also as a part, by its keyword and values.
Texts AllOf(ProjModel& model) {
  Texts all = Population(model);
  for (STEPheader* object = model.Inst(); object; object = object->next) {
    const bool isComplex = object->Type() == STEPcomplex::kType;
    STEPheader* each = isComplex ? static_cast<STEPcomplex*>(object)->Parts() : object;
    for (; each; each = isComplex ? each->next : nullptr) {
      if (auto* any = dynamic_cast<AnyRecord*>(each)) all.push_back(steprt::Print(*any));
    }
  }
  return all;
}

// `after` is called before anything is looked at, to end what fails meanwhile.
template <typename After>
Look Read(const std::string& path, After after) {
  ProjModel model;
  Told told;
  STEPfileHeader header;
  STEPreadOptions options;
  options.header = &header;
  options.unknown = AnyRecord::Row();
  options.diagnose = Diagnose;
  options.progress = Progress;
  options.context = &told;
  const int result = model.ReadStandard(path.c_str(), &options);
  after();
  const Look look = {result, TakeReports(path), AllOf(model), HeaderTexts(header)};
  EXPECT_TRUE(look.result == static_cast<int>(told.codes.size()) || look.reports.empty());
  EXPECT_EQ(look.reports.size(), told.codes.size());
  ExpectSound(model);
  return look;
}
Look Read(const std::string& path) {
  return Read(path, [] {});
}

bool IsToldOf(const Look& look, const Look& sound) {
  Texts reports = look.reports;
  for (const std::string& each : sound.reports) std::erase(reports, each);
  if (reports.empty()) return false;
  const auto says = [&](const char* words) { return reports[0].find(words) != std::string::npos; };
  return says("]Out of memory") || says("]File not found") || says("out of memory") || says("]XML: Can't open file");
}

// Without memory for the transfer there is nothing to tell with.
bool IsNothing(const Look& look) { return look.result == 1 && look.reports.empty() && look.population.empty(); }

struct Kind {
  const char* name;
  bool isXml;
};
std::vector<Kind> Kinds() {
  std::vector<Kind> kinds = {{"in clear text", false}};
  if (steprt::saxService) kinds.push_back({"in XML", true});
  return kinds;
}

STEPwriteOptions Writing() {
  STEPwriteOptions options;
  options.unknown = AnyRecord::Row();
  return options;
}

// The header is made with memory, and its time does not change.
int Write(STEPmodel& model, const Kind& kind, const std::string& path) {
  static STEPfileHeader header;
  if (header.timeStamp.IsEmpty()) header.timeStamp = "now";
  const STEPwriteOptions options = Writing();
  return kind.isXml ? model.WriteStandardXml(path.c_str(), &header, &options)
                    : model.WriteStandard(path.c_str(), &header, &options);
}

// The file that is read: as it is, or what is written of it as XML.
std::string MakeInput(const Kind& kind) {
  const std::string path = MakeFile("sweep-in.stp", File());
  if (!kind.isXml) return path;
  ProjModel model;
  STEPreadOptions options;
  options.unknown = AnyRecord::Row();
  model.ReadStandard(path.c_str(), &options);
  const std::string document = TempPath("sweep-in.xml");
  EXPECT_GT(Write(model, kind, document), 0);
  TakeReports("");
  return document;
}

TEST(StandardSweep, AReadTellsWhereMemoryRanOut) {
  for (const Kind& kind : Kinds()) {
    const std::string path = MakeInput(kind);
    const Look sound = Read(path);
    EXPECT_GT(sound.population.size(), 30U);
    EXPECT_GE(sound.header.size(), 10U) << sound;
    for (const auto extent : {FailingNew::kAlone, FailingNew::kAndAllBehind}) {
      bool hasFailed = true;
      for (long nth = 1; hasFailed && !HasFailure(); ++nth) {
        SCOPED_TRACE(std::string(kind.name) + ", allocation " + std::to_string(nth) + (extent ? " and all after" : ""));
        const long blocks = LiveBlocks();
        const int handle = NextHandle();
        {
          auto failing = std::make_unique<FailingNew>(nth, extent);
          const Look look = Read(path, [&] {
            hasFailed = failing->HasFailed();
            failing.reset();
          });
          EXPECT_TRUE(look == sound || (hasFailed && (IsToldOf(look, sound) || IsNothing(look)))) << look;
        }
        EXPECT_EQ(Read(path), sound);
        EXPECT_EQ(LiveBlocks(), blocks);
        EXPECT_EQ(NextHandle(), handle);
        EXPECT_TRUE(hasFailed || nth > 20) << nth;
      }
    }
  }
}

// The model that is written.
void Fill(ProjModel& model) {
  STEPreadOptions options;
  options.unknown = AnyRecord::Row();
  model.ReadStandard(MakeFile("sweep-in.stp", File()).c_str(), &options);
  TakeReports("");
}

// The names in the folder of the written file.
std::size_t CountFiles(const std::string& folder) {
  const std::filesystem::directory_iterator all(folder);
  return static_cast<std::size_t>(std::distance(begin(all), end(all)));
}

TEST(StandardSweep, AWriteWithoutMemoryLeavesTheOldFile) {
  ProjModel model;
  Fill(model);
  const std::string folder = TempPath("sweep-folder");
  std::filesystem::create_directory(folder);
  const std::string path = folder + "/out.stp";
  for (const Kind& kind : Kinds()) {
    const int count = Write(model, kind, path);
    EXPECT_GT(count, 20);
    TakeReports("");
    const std::string sound = BytesOf(path);
    for (const auto extent : {FailingNew::kAlone, FailingNew::kAndAllBehind}) {
      for (const char* before : {"before", "(none)"}) {
        bool hasFailed = true;
        for (long nth = 1; hasFailed && !HasFailure(); ++nth) {
          SCOPED_TRACE(std::string(kind.name) + ", allocation " + std::to_string(nth) +
                       (extent ? " and all after" : ""));
          MakeFile("sweep-folder/out.stp", before);
          const bool isNew = std::string(before) == "(none)";
          if (isNew) std::filesystem::remove(path);
          const long blocks = LiveBlocks();
          const int handle = NextHandle();
          auto failing = std::make_unique<FailingNew>(nth, extent);
          const int result = Write(model, kind, path);
          hasFailed = failing->HasFailed();
          failing.reset();
          TakeReports(path);
          EXPECT_TRUE(result == count ? BytesOf(path) == sound : result == -1 && BytesOf(path) == before) << result;
          EXPECT_TRUE(result == count || hasFailed) << result;
          EXPECT_EQ(CountFiles(folder), isNew && result == -1 ? 0U : 1U);
          EXPECT_EQ(LiveBlocks(), blocks);
          EXPECT_EQ(NextHandle(), handle);
          ExpectSound(model);
        }
      }
    }
  }
}

const struct Fault {
  const char* name;
  int error;  // 0: the call takes one byte
  bool allBehind;
} kFaults[] = {{"EIO", EIO, false},       {"EIO from then on", EIO, true}, {"ENOSPC from then on", ENOSPC, true},
               {"EAGAIN", EAGAIN, false}, {"interrupted", EINTR, false},   {"one byte", 0, false}};

bool Loses(const Fault& fault) { return fault.error != 0 && fault.error != EINTR; }

// A file of several blocks.
std::string LongFile() {
  return "ISO-10303-21;HEADER;FILE_SCHEMA(('PROJ'));ENDSEC;DATA;" +
         Repeat(3'000, "/* a comment */#^=(PERSON(@)NOTE('and a text\nof two lines'));\n") + "ENDSEC;END-ISO-10303-21;";
}

TEST(StandardSweep, AReadReturnsWhatTheBytesThatArrivedReturn) {
  const std::string bytes = LongFile();
  const std::string path = MakeFile("sweep-io.stp", bytes);
  const Look sound = Read(path);
  ASSERT_EQ(sound.population.size(), 3'000U);
  for (const Fault& fault : kFaults) {
    bool hasFailed = true;
    for (long nth = 1; hasFailed && !HasFailure(); ++nth) {
      SCOPED_TRACE(std::string(fault.name) + ", call " + std::to_string(nth));
      MakeFile("sweep-io.stp", bytes);
      auto calls =
          std::make_unique<FaultyCalls>(Faults{.failing = nth, .allBehind = fault.allBehind, .error = fault.error});
      std::size_t arrived = 0;
      const Look look = Read(path, [&] {
        arrived = calls->Bytes();
        hasFailed = calls->HasFailed();
        calls.reset();
      });
      EXPECT_TRUE(arrived == bytes.size() || (Loses(fault) && hasFailed && look.result != 0));
      MakeFile("sweep-io.stp", bytes.substr(0, arrived));
      EXPECT_TRUE(look == (arrived == bytes.size() ? sound : Read(path)));
    }
  }
}

TEST(StandardSweep, AWriteThatFailsLeavesTheOldFile) {
  ProjModel model;
  model.ReadStandard(MakeFile("sweep-in.stp", LongFile()).c_str());
  const std::string folder = TempPath("sweep-folder");
  std::filesystem::create_directory(folder);
  const std::string path = folder + "/out.stp";
  for (const Kind& kind : Kinds()) {
    ASSERT_EQ(Write(model, kind, path), 3'000);
    const std::string sound = BytesOf(path);
    for (const Fault& fault : kFaults) {
      bool hasFailed = true;
      for (long nth = 1; hasFailed && !HasFailure(); ++nth) {
        SCOPED_TRACE(std::string(kind.name) + ", " + fault.name + ", call " + std::to_string(nth));
        MakeFile("sweep-folder/out.stp", "before");
        auto calls =
            std::make_unique<FaultyCalls>(Faults{.failing = nth, .allBehind = fault.allBehind, .error = fault.error});
        const int result = Write(model, kind, path);
        hasFailed = calls->HasFailed();
        calls.reset();
        const bool isLost = hasFailed && Loses(fault);
        const Texts reports = TakeReports(path);
        EXPECT_EQ(result, isLost ? -1 : 3'000);
        EXPECT_TRUE(BytesOf(path) == (isLost ? "before" : sound));
        EXPECT_EQ(CountFiles(folder), 1U);
        ASSERT_EQ(reports.size(), isLost ? 1U : 0U);
        EXPECT_TRUE(!isLost || reports[0].find("]error writing file") != std::string::npos);
      }
    }
  }
}

}  // namespace
