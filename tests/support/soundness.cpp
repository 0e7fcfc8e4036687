#include "support/soundness.h"

#include <gtest/gtest.h>

#include "steprt/instance.h"

namespace steprt_test {

int ResultOf(const Texts& reports) {
  int result = 0;
  for (const std::string& report : reports) {
    const bool isTheLibrarys = report[0] == '(' && report.find(") [") != std::string::npos;
    if (isTheLibrarys) {
      ++result;
    } else if (report != "Missing entity 'Rid'") {
      result = -1;
    }
  }
  return result;
}

void ExpectSound(STEPmodel& model) {
  STEPheader** link = &model.first;
  for (; *link; link = &(*link)->next) ASSERT_EQ((*link)->Model(), &model);
  EXPECT_EQ(link, model.tail);
  EXPECT_FALSE(model.Locked());
  EXPECT_FALSE(model.Changed());
}

}  // namespace steprt_test
