// Rows about attribute readers: what a PROBE with attributes of these kinds makes of a file's data.
#ifndef STEPRT_TESTS_READ_ATTRIBUTE_ROWS_H
#define STEPRT_TESTS_READ_ATTRIBUTE_ROWS_H

#include <gtest/gtest.h>

#include "support/proj_schema.h"

namespace steprt_test {

struct AttributeRow {
  const char* kinds;
  const char* data;
  Texts population;
  Texts reports = {};
  int expected = -1;  // type of the references
};

inline void ExpectRows(const std::vector<AttributeRow>& rows) {
  for (const AttributeRow& row : rows) {
    SetProbe({row.kinds, row.expected});
    const Outcome outcome = ReadData(row.data);
    const std::string what = std::string(row.kinds) + " of " + row.data;
    EXPECT_EQ(outcome.population, row.population) << what;
    EXPECT_EQ(outcome.reports, row.reports) << what;
    EXPECT_EQ(outcome.result, static_cast<int>(row.reports.size())) << what;
  }
  SetProbe({});
}

}  // namespace steprt_test

#endif
