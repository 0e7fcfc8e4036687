#include "schema/constant_table.h"

#include <gtest/gtest.h>

namespace steprt_test {
namespace {

constexpr APPentity kRows[] = {{"BODY", nullptr, nullptr, 1, nullptr}, {"SPHERE", nullptr, nullptr, 2, "BODY"}};

const std::string seenInChecked = RowsOf(plainTable);

}  // namespace

constinit APPtable<2> checkedTable("CHECKED", kRows);

// One of the two units is initialised first, so one of the two looks comes before the other unit has run any code.
TEST(ConstantTableTest, TableIsCompleteBeforeItsUnitIsInitialised) {
  EXPECT_EQ(seenInChecked, "PLAIN LINE 7 - ARC 8 LINE CIRCLE 9 ARC");
  EXPECT_EQ(seenInPlain, "CHECKED BODY 1 - SPHERE 2 BODY");
}

}  // namespace steprt_test
