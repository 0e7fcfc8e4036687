// Every read and every write of a transfer fails once, alone and with all after it, is interrupted, or falls short: a
// read returns what the bytes that arrived return, a write leaves whole records, and what is lost is told.
#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <memory>

#include "platform/sax.h"
#include "support/faulty_calls.h"
#include "xml/documents.h"

namespace {

using namespace steprt_test;

const struct Fault {
  const char* name;
  int error;  // 0: the call takes one byte
  bool allBehind;
  bool loses;
} kFaults[] = {
    {"EIO", EIO, false, true},       {"EIO from then on", EIO, true, true}, {"ENOSPC from then on", ENOSPC, true, true},
    {"EAGAIN", EAGAIN, false, true}, {"interrupted", EINTR, false, false},  {"one byte", 0, false, false},
};

struct Input {
  const char* name;
  bool isDocument;
  std::string bytes;
};

// Walls of a name that fills blocks: their numbers and names stand for # and @.
std::string Walls(const std::string& wall) {
  std::string walls;
  for (int i = 1; i <= 800; ++i) {
    walls += wall;
    walls.replace(walls.rfind('@'), 1, 220, 'n');
    walls.insert(walls.rfind('#') + 1, std::to_string(i));
  }
  return walls;
}

std::vector<Input> Inputs() {
  const std::string golden = STEPRT_TEST_GOLDEN;
  std::vector<Input> inputs = {{"records of several blocks", false, InFrame(Walls("#=WALL('@',1.,$,(),(1,2),.T.);\n"))},
                               {"a faulty file", false, BytesOf(golden + "/faulty/in.stp")}};
  if (!steprt::saxService) return inputs;
  inputs.push_back({"a document of several blocks", true,
                    InRoot(Walls("<WALL rid='#'><Name>@</Name><External>.T.</External></WALL>\n"))});
  inputs.push_back({"a document", true, BytesOf(golden + "/sound/out.xml")});
  return inputs;
}

Outcome Read(const Input& input, const std::string& bytes, ProjModel& model) {
  const std::string path = MakeFile("swept.stp", bytes);
  model.Name(path.c_str());
  CurrentModel(&model);
  const int result = input.isDocument ? model.ReadXml(nullptr) : STEPread(model.Name(), ProjSchema(), false);
  return {result, TakeReports(path), Population(model)};
}

Outcome Read(const Input& input, const std::string& bytes) {
  ProjModel model;
  return Read(input, bytes, model);
}

// Calls `look` with a trace of what it looks at, for each fault and each call, until a run makes fewer.
template <typename Look>
void Sweep(const std::string& what, Look look) {
  for (const Fault& fault : kFaults) {
    bool hasFailed = true;
    for (long nth = 1; hasFailed; ++nth) {
      SCOPED_TRACE(what + ", call " + std::to_string(nth) + ", " + fault.name);
      hasFailed = look(fault, nth);
      ASSERT_LT(nth, 1000);
    }
  }
}

bool SaysThatItFailed(const Outcome& outcome) {
  return std::any_of(outcome.reports.begin(), outcome.reports.end(), [](const std::string& report) {
    return report.rfind("the file can't be read on (line ", 0) == 0;
  });
}

// A document says that it could not be read, even where all of it had come; of clear text what is missing is told.
TEST(IoSweep, AReadReturnsWhatTheBytesThatArrivedReturn) {
  for (const Input& input : Inputs()) {
    const Outcome sound = Read(input, input.bytes);
    ASSERT_GT(sound.population.size(), 10u) << input.name;
    Sweep(input.name, [&](const Fault& fault, long nth) {
      auto calls =
          std::make_unique<FaultyCalls>(Faults{.failing = nth, .allBehind = fault.allBehind, .error = fault.error});
      const Outcome outcome = Read(input, input.bytes);
      const std::size_t arrived = calls->Bytes();
      const bool hasFailed = calls->HasFailed();
      calls.reset();
      const bool isWhole = arrived == input.bytes.size();
      const Outcome expected = isWhole ? sound : Read(input, input.bytes.substr(0, arrived));
      EXPECT_TRUE(isWhole || (fault.loses && hasFailed && outcome.result != 0));
      EXPECT_TRUE(outcome.population == expected.population);
      if (input.isDocument && fault.loses && hasFailed) {
        EXPECT_TRUE(outcome.result != 0 && SaysThatItFailed(outcome));
      } else {
        EXPECT_EQ(outcome.reports, expected.reports);
        EXPECT_EQ(outcome.result, expected.result);
      }
      return hasFailed;
    });
  }
}

struct Form {
  const char* name;
  int (STEPmodel::*write)(char* name, const char* remark);
  const char* tail;
} const kForms[] = {{"as clear text", &STEPmodel::Write, "ENDSEC;\n\nEND-ISO-10303-21;\n"},
                    {"as XML", &STEPmodel::WriteXml, "</PROJ>\n"}};

Outcome Write(ProjModel& model, const Form& form) {
  std::string path = TempPath("swept-out.stp");
  const int result = (model.*form.write)(path.data(), "");
  return {result, TakeReports(path), {MaskedBytesOf(path)}};
}

bool IsStartOf(const std::string& whole, const std::string& bytes) {
  return whole.compare(0, bytes.size(), bytes) == 0 && (bytes.empty() || bytes.back() == '\n');
}

// What is left when a write failed in front of the end.
void ExpectLoss(const Outcome& outcome, const Outcome& sound, const Fault& fault, const std::string& tail) {
  EXPECT_EQ(outcome.result, -1);
  ASSERT_EQ(outcome.reports.size(), 1u);
  EXPECT_NE(outcome.reports[0].find("]error writing file"), std::string::npos) << outcome.reports[0];
  std::string bytes = outcome.population[0];
  if (!fault.allBehind) {
    ASSERT_TRUE(bytes.size() >= tail.size() && bytes.substr(bytes.size() - tail.size()) == tail);
    bytes.resize(bytes.size() - tail.size());
  }
  EXPECT_TRUE(IsStartOf(sound.population[0], bytes)) << "records are cut";
}

// The last call writes nothing but the end, and nobody looks after it.
TEST(IoSweep, AWriteIsWholeOrTellsThatItIsNot) {
  for (const Input& input : Inputs()) {
    ProjModel model;
    Read(input, input.bytes, model);
    for (const Form& form : kForms) {
      const auto all = std::make_unique<FaultyCalls>(Faults{});
      const Outcome sound = Write(model, form);
      const long last = all->Count();
      ASSERT_GE(last, 2);
      Sweep(std::string(input.name) + " " + form.name, [&](const Fault& fault, long nth) {
        const FaultyCalls calls({.failing = nth, .allBehind = fault.allBehind, .error = fault.error});
        const Outcome outcome = Write(model, form);
        if (!calls.HasFailed() || !fault.loses) {
          EXPECT_TRUE(outcome == sound);
        } else if (nth < last) {
          ExpectLoss(outcome, sound, fault, form.tail);
        } else {
          EXPECT_EQ(outcome.result, sound.result);
          EXPECT_TRUE(IsStartOf(sound.population[0], outcome.population[0]));
        }
        return calls.HasFailed();
      });
    }
  }
}

}  // namespace
