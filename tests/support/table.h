// Tables written as text.
#ifndef STEPRT_TESTS_SUPPORT_TABLE_H
#define STEPRT_TESTS_SUPPORT_TABLE_H

#include <cstddef>
#include <string>
#include <vector>

#include "support/reports.h"

namespace steprt_test {

// One for each line, filled up to this number of cells. They are parted by " |" and given without the blanks round
// them; \n, \r and \xHH in a cell are the bytes they name. Lines that are empty or begin with // are no rows.
std::vector<Texts> Table(const std::string& lines, std::size_t cells);

// The table in a file of the tests' folder, such as "read/sections.rows".
std::vector<Texts> TableOf(const std::string& file, std::size_t cells);

// What " & " parts in a cell; an empty one holds nothing.
Texts ItemsOf(const std::string& cell);

}  // namespace steprt_test

#endif
