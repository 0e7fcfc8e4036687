#include "check.h"

#include <cstdio>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "console.h"
#include "exchange/schema/schema_check.h"
#include "exchange_files.h"
#include "exit_status.h"
#include "schema_files.h"

namespace steprt_tools {
namespace {

struct CheckRequest : ExchangeRequest {
  std::vector<std::string> schemas;
  std::size_t most = 5;  // reports of one kind
};

// The figures of the last line.
struct Sum {
  std::size_t records = 0;
  std::size_t read = 0;
  std::size_t errors = 0;
  std::size_t warnings = 0;

  void Add(const Sum& other) {
    records += other.records;
    read += other.read;
    errors += other.errors;
    warnings += other.warnings;
  }
};

struct Checked {
  exchange::Survey survey;
  exchange::Reports reports;
  std::string schema;  // empty without one
  Sum sum;
};

Checked CheckFile(const exchange::Input& input, const express::Model* model, std::size_t most) {
  Checked checked{{}, exchange::Reports(most), {}, {}};
  ProgressBar bar(input.Name());
  const exchange::SurveyOptions options{false, [&](std::size_t done, std::size_t total) { bar.Show(done, total); }};
  checked.survey = model == nullptr ? TakeSurvey(input, options, checked.reports)
                                    : CheckAgainst(*model, input, options, checked.reports, &checked.schema);
  const exchange::Totals& totals = checked.survey.totals;
  checked.sum = {totals.records, totals.read, checked.reports.Total(exchange::Severity::kError),
                 checked.reports.Total(exchange::Severity::kWarning)};
  return checked;
}

void PrintSum(const Sum& sum) {
  std::printf("records %zu, read %zu, errors %zu, warnings %zu\n", sum.records, sum.read, sum.errors, sum.warnings);
}

void AddSum(const Sum& sum, Json& json) {
  json["records"] = sum.records;
  json["read"] = sum.read;
  json["errors"] = sum.errors;
  json["warnings"] = sum.warnings;
}

Json CheckedAsJson(const exchange::Input& input, const Checked& checked) {
  Json file{{"file", input.Name()}};
  if (!checked.schema.empty()) file["schema"] = checked.schema;
  AddSum(checked.sum, file);
  file.update(ReportsAsJson(input, checked.reports));
  return file;
}

int CheckAll(const CheckRequest& request, const express::Model* model) {
  Sum sum;
  Json files = Json::array();
  const int status = ForEachFile(request, [&](const exchange::Input& input) {
    const Checked checked = CheckFile(input, model, request.most);
    sum.Add(checked.sum);
    if (request.json) {
      files.push_back(CheckedAsJson(input, checked));
    } else {
      PrintReports(input, checked.reports);
      if (request.files.size() > 1) std::printf("%s: ", Harmless(input.Name()).c_str());
      if (request.files.size() > 1) PrintSum(checked.sum);
    }
    return checked.sum.errors > 0 ? kFindings : kClean;
  });
  if (request.json) {
    Json document{{"files", std::move(files)}};
    AddSum(sum, document);
    PrintJson(document);
  } else {
    PrintSum(sum);
  }
  return status;
}

int Check(const CheckRequest& request) {
  if (request.schemas.empty()) return CheckAll(request, nullptr);
  express::Diagnostics diagnostics;
  const auto model = LoadSchemas(request.schemas, diagnostics);
  // A schema with errors is as useless here as one that cannot be read.
  if (PrintDiagnostics(diagnostics) != kClean) return kUnusable;
  if (!model->schemas.empty()) return CheckAll(request, model.get());
  std::fputs("steprt: error: no schema in the files of --schema\n", stderr);
  return kUnusable;
}

}  // namespace

void AddCheck(CLI::App& app, int& status) {
  auto request = std::make_shared<CheckRequest>();
  CLI::App* const command = app.add_subcommand("check", "Find what is wrong with exchange files (ISO 10303-21)");
  command->footer(
      "Without a schema: the grammar, names that two records have, references to no record. With one,\n"
      "also entities, attributes, references, selects, enumerators, sizes of aggregates, and the parts\n"
      "of complex instances. A file is checked against the schema that its FILE_SCHEMA names.\n\n"
      "The last line is \"records N, read M, errors E, warnings W\" for all files: M of the N records\n"
      "have no fault of the grammar. Warnings are for what readers take against the letter.\n\n"
      "Exit status: 0 no errors, 1 errors, 2 wrong usage or a file that cannot be used.\n\n"
      "Example: steprt check house.ifc --schema IFC4.exp");
  AddFiles(*command, *request);
  command->add_option("--schema", request->schemas, "A file in EXPRESS; may be repeated")
      ->type_name("FILE.exp")
      ->allow_extra_args(false)
      ->take_all();
  command->add_option("--most", request->most, "Show at most N reports of one kind for each file; default: 5")
      ->type_name("N")
      ->check(CLI::Range(std::size_t{0}, std::size_t{1'000'000'000}).description(""));
  command->callback([request, &status] { status = Check(*request); });
}

}  // namespace steprt_tools
