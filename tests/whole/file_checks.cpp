#include "whole/file_checks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "platform/sax.h"
#include "support/faulty_calls.h"
#include "support/soundness.h"
#include "support/tame.h"
#include "whole/reference/reader.h"
#include "xml/documents.h"

namespace steprt_test {
namespace {

// A file that the library wrote keeps a reference to the wrong type, and a text of the very length that is reported.
void ExpectTameReports(const Texts& reports) {
  for (const std::string& report : reports) {
    const bool isExpected = report.find("]Reference to wrong object type ''") != std::string::npos ||
                            report.find("]Too long element, truncated") != std::string::npos;
    EXPECT_TRUE(isExpected) << report;
  }
}

std::string Write(ProjModel& model, Form form) {
  std::string path = TempPath("again.stp");
  std::filesystem::remove(path);  // much faster than to empty it
  const Texts population = Population(model);
  const auto hasRecord = [](const std::string& instance) {
    return instance.rfind("NOTE(", 0) != 0 && instance[0] != '{';
  };
  const auto records = std::count_if(population.begin(), population.end(), hasRecord);
  EXPECT_EQ(form == Form::kXml ? model.WriteXml(path.data(), "") : model.Write(path.data(), ""), records);
  ExpectSound(model);
  return path;
}

// Files take their time, so the second write is left out for most of them.
void ExpectComesBack(ProjModel& model, Form form) {
  Tame(model, form);
  const Texts population = Population(model);
  const std::string path = Write(model, form);
  const std::string bytes = MaskedBytesOf(path);
  ProjModel back;
  back.Name(path.c_str());
  if (population.empty() && form == Form::kClearText) return;  // it would be read as a document
  const int result = form == Form::kXml ? back.ReadXml(nullptr) : back.Read(true, nullptr);
  const Texts reports = TakeReports(path);
  EXPECT_EQ(result, ResultOf(reports));
  ExpectTameReports(reports);
  EXPECT_EQ(Population(back), population);
  ExpectSound(back);
  if (bytes.size() % 4 != 0) return;
  EXPECT_EQ(MaskedBytesOf(Write(back, form)), bytes);
}

// The reference reader's outcome. A file that leaves the model empty is read as a document next.
Outcome ExpectedOf(const ReadCase& read) {
  Outcome expected = ReadByReference(read);
  EXPECT_EQ(expected.result, ResultOf(expected.reports));
  if (!expected.population.empty()) return expected;
  const Outcome document = ReadDocumentFile(read.bytes);
  expected.reports.insert(expected.reports.end(), document.reports.begin(), document.reports.end());
  return {document.result, expected.reports, document.population};
}

// A model other than the current one is read into.
Outcome ReadInto(ProjModel& model, const std::string& name, const std::function<int()>& read) {
  ProjModel other;
  const int result = read();
  EXPECT_EQ(CurrentModel(), &other);
  EXPECT_TRUE(other.IsEmpty());
  ExpectSound(model);
  return {result, TakeReports(name), Population(model)};
}

// Lookups by the index differ from those along the chain, but not with the size of the blocks.
void ExpectAlikeByIndex(const std::string& bytes) {
  const auto read = [&](int atMost) {
    const FaultyCalls calls({.interrupted = true, .atMost = [=] { return atMost; }});
    ProjModel model;
    model.PrepareHash();
    return ReadBytes(model, bytes);
  };
  EXPECT_EQ(read(7), read(1 << 20));
}

}  // namespace

void CheckClearText(const std::string& bytes) {
  const ReadCase read = {.bytes = bytes, .check = bytes.size() % 3 == 1, .atMost = bytes.size() % 2 ? 11 : 1 << 20};
  const Outcome expected = ExpectedOf(read);
  ProjModel model;
  std::string path = MakeFile("read.xml", bytes);
  {
    const FaultyCalls calls({.atMost = [&] { return read.atMost; }});
    EXPECT_EQ(ReadInto(model, path, [&] { return model.Read(read.check, path.data()); }), expected);
  }
  if (bytes.size() % 8 == 0) ExpectAlikeByIndex(bytes);
  if (bytes.size() % 4 == 0) Write(model, Form::kClearText);  // values that do not come back
  ExpectComesBack(model, Form::kClearText);
  if (bytes.size() % 4 == 1 && steprt::saxService) ExpectComesBack(model, Form::kXml);
}

void CheckDocument(const std::string& bytes) {
  const std::string document = bytes.substr(0, bytes.find('\0'));
  ProjModel model;
  model.Name("memory.xml");
  const Outcome outcome = ReadInto(model, model.Name(), [&] { return model.ReadXml(document.c_str()); });
  EXPECT_EQ(outcome.result, ResultOf(outcome.reports));
  if (document.size() % 4 == 0) {
    const FaultyCalls calls({.interrupted = true, .atMost = [] { return 50; }});
    EXPECT_EQ(ReadDocumentFile(document), outcome);
  }
  ExpectComesBack(model, Form::kXml);
}

}  // namespace steprt_test
