// What the subcommands for exchange files share: their arguments, the loop over the files, and the form of reports.
#ifndef STEPRT_TOOLS_EXCHANGE_FILES_H
#define STEPRT_TOOLS_EXCHANGE_FILES_H

#include <CLI/CLI.hpp>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "exchange/input.h"
#include "exchange/reports.h"
#include "exchange/survey.h"

namespace steprt_tools {

using Json = nlohmann::ordered_json;

struct ExchangeRequest {
  std::vector<std::string> files;
  bool json = false;
};

// The files and --json.
void AddFiles(CLI::App& command, ExchangeRequest& request);

// Calls `use` for each file that can be read, prints the reason for the others, and returns the exit status: kUnusable
// if a file cannot be read, else the highest one that `use` returned.
int ForEachFile(const ExchangeRequest& request, const std::function<int(const exchange::Input&)>& use);

// What is wrong at one place of a file.
struct Finding {
  exchange::Severity severity;
  std::string code;
  std::string message;
  std::size_t line;    // from 1
  std::size_t column;  // from 1; 0: no such place
  std::size_t offset;
  std::uint64_t instance;  // 0: outside of records
};

// As a compiler prints it, with the line of the file and a caret.
void PrintFinding(const exchange::Input& input, const Finding& finding);
Json FindingAsJson(const Finding& finding);

// Each report as a compiler prints it, then the number of those that were dropped.
void PrintReports(const exchange::Input& input, const exchange::Reports& reports);
Json ReportsAsJson(const exchange::Input& input, const exchange::Reports& reports);

Json AsJson(const exchange::Header& header);
Json AsJson(const exchange::Totals& totals);
// Bytes that are no UTF-8 become U+FFFD.
void PrintJson(const Json& document);

}  // namespace steprt_tools

#endif
