// The other unit of constant_table_test.cpp.
#include "schema/constant_table.h"

namespace steprt_test {
namespace {

constexpr APPentity kRows[] = {{"LINE", nullptr, nullptr, 7, nullptr},
                               {"ARC", nullptr, nullptr, 8, "LINE"},
                               {"CIRCLE", nullptr, nullptr, 9, "ARC"}};

}  // namespace

APPtable<3> plainTable("PLAIN", kRows);

const std::string seenInPlain = RowsOf(checkedTable);

}  // namespace steprt_test
