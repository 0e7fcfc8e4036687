// Collects what a transfer reports.
#ifndef STEPRT_TESTS_SUPPORT_REPORTS_H
#define STEPRT_TESTS_SUPPORT_REPORTS_H

#include <string>
#include <vector>

namespace steprt_test {

using Texts = std::vector<std::string>;

// An error procedure.
void CollectReport(const char* text);

// What has been collected since the last call. Of a report about `path` that has the one form of reports, what follows
// the path is given: "(12) [WALL]Missing integer" for "STEP error: <path> (12) [WALL]Missing integer". Others come
// whole.
Texts TakeReports(const std::string& path);

}  // namespace steprt_test

#endif
