// Rows about attribute readers: what a PROBE with attributes of these kinds makes of a file's data.
#ifndef STEPRT_TESTS_READ_ATTRIBUTE_ROWS_H
#define STEPRT_TESTS_READ_ATTRIBUTE_ROWS_H

#include <gtest/gtest.h>

#include "support/proj_schema.h"
#include "support/table.h"

namespace steprt_test {

// Of a report that begins with its place, or else is "(1) [PROBE]" and what the cell says.
inline Texts ReportsOf(const std::string& cell) {
  Texts reports = ItemsOf(cell);
  for (std::string& each : reports) each.insert(0, each[0] == '(' ? "" : "(1) [PROBE]");
  return reports;
}

// The rows of a file: kinds, data, population, reports. The type that references are of may follow the kinds, as in
// "f:11".
inline void ExpectRows(const std::string& file, const std::function<Outcome(const std::string&)>& read) {
  const std::vector<Texts> rows = TableOf(file, 4);
  EXPECT_GT(rows.size(), 20u) << file;
  for (const Texts& row : rows) {
    const std::size_t colon = row[0].find(':');
    SetProbe({row[0].substr(0, colon), colon == std::string::npos ? -1 : std::stoi(row[0].substr(colon + 1))});
    const Texts reports = ReportsOf(row[3]);
    EXPECT_EQ(read(row[1]), (Outcome{static_cast<int>(reports.size()), reports, ItemsOf(row[2])}))
        << row[0] << " of " << row[1];
  }
}

// The same for a PROBE whose read function is this.
inline Outcome ReadWith(std::function<STEPheader*(STEPtransfer*)> readProbe, const std::string& data) {
  SetProbe({"", -1, std::move(readProbe)});
  return ReadData(data);
}

}  // namespace steprt_test

#endif
