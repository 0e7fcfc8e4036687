#include "whole/record_checks.h"

#include <gtest/gtest.h>

#include "support/records.h"

namespace steprt_test {
namespace {

int CountOf(steprt::Model& model) {
  int count = 0;
  for ([[maybe_unused]] steprt::Record& record : model.All<steprt::Record>()) ++count;
  return count;
}

// What is written of what was read of a data section.
std::string WrittenAgain(const std::string& data, int count) {
  steprt::Model model(&recordSchema);
  ReadRecords(model, data);
  EXPECT_EQ(CountOf(model), count);
  return WrittenData(model);
}

}  // namespace

// The first time, -0 may become 0, and an infinity nothing.
void CheckRecords(const std::string& bytes) {
  steprt::Model model(&recordSchema);
  const std::string path = MakeFile("records.stp", bytes);
  model.Read(path);
  TakeReports(path);
  const int count = CountOf(model);
  const std::string second = WrittenAgain(WrittenData(model), count);
  EXPECT_EQ(WrittenAgain(second, count), second);
  const std::string document = TempPath("records.xml");
  EXPECT_EQ(model.WriteXml(document), count);
  steprt::Model again(&recordSchema);
  again.Name(document.c_str());
  again.ReadXml(nullptr);
  TakeReports(document);
}

}  // namespace steprt_test
