#include "stat.h"

#include <algorithm>
#include <cstdio>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "console.h"
#include "exchange_files.h"
#include "exit_status.h"

namespace steprt_tools {
namespace {

using Keyword = std::pair<std::string, exchange::KeywordCount>;

// The most frequent ones first, then by the alphabet.
std::vector<Keyword> Sorted(const exchange::TextMap<exchange::KeywordCount>& keywords) {
  std::vector<Keyword> sorted(keywords.begin(), keywords.end());
  std::sort(sorted.begin(), sorted.end(), [](const Keyword& a, const Keyword& b) {
    const std::size_t ofA = a.second.records + a.second.parts;
    const std::size_t ofB = b.second.records + b.second.parts;
    return ofA != ofB ? ofA > ofB : a.first < b.first;
  });
  return sorted;
}

std::string Joined(const std::vector<std::string>& texts) {
  std::string joined;
  for (const std::string& text : texts) joined += (joined.empty() || text.empty() ? "" : ", ") + text;
  return joined;
}

void PrintText(const char* label, const std::string& text) {
  if (!text.empty()) std::printf("  %-14s%s\n", label, Harmless(text).c_str());
}

void PrintHeader(const exchange::Header& header) {
  PrintText("description", Joined(header.description));
  PrintText("level", header.implementationLevel);
  PrintText("name", header.name);
  PrintText("time", header.timeStamp);
  PrintText("author", Joined(header.author));
  PrintText("organization", Joined(header.organization));
  PrintText("preprocessor", header.preprocessorVersion);
  PrintText("system", header.originatingSystem);
  PrintText("authorization", header.authorization);
  PrintText("schema", Joined(header.schemas));
}

void PrintTotals(const exchange::Totals& totals) {
  const std::pair<const char*, std::size_t> rows[] = {
      {"bytes", totals.bytes},     {"records", totals.records},       {"read", totals.read},
      {"complex", totals.complex}, {"references", totals.references}, {"dangling", totals.dangling},
      {"doubled", totals.doubled}};
  for (const auto& [label, count] : rows) std::printf("  %-14s%zu\n", label, count);
}

void PrintSurvey(const std::string& name, const exchange::Survey& survey) {
  std::printf("%s\n", Harmless(name).c_str());
  PrintHeader(survey.header);
  PrintTotals(survey.totals);
  std::printf("  %10s %10s  keyword\n", "records", "parts");
  for (const auto& [keyword, count] : Sorted(survey.keywords)) {
    std::printf("  %10zu %10zu  %s\n", count.records, count.parts, keyword.c_str());
  }
}

Json SurveyAsJson(const std::string& name, const exchange::Survey& survey) {
  Json file{{"file", name}, {"header", AsJson(survey.header)}};
  file.update(AsJson(survey.totals));
  Json& keywords = file["keywords"] = Json::object();
  for (const auto& [keyword, count] : Sorted(survey.keywords)) {
    keywords[keyword] = {{"records", count.records}, {"parts", count.parts}};
  }
  return file;
}

bool HasFindings(const exchange::Totals& totals) {
  return totals.read < totals.records || totals.dangling > 0 || totals.doubled > 0;
}

int Stat(const ExchangeRequest& request) {
  std::size_t records = 0;
  Json files = Json::array();
  const int status = ForEachFile(request, [&](const exchange::Input& input) {
    exchange::Reports reports(0);
    exchange::Survey survey;
    {
      ProgressBar bar(input.Name());
      survey = TakeSurvey(input, {true, [&](std::size_t done, std::size_t total) { bar.Show(done, total); }}, reports);
    }
    records += survey.totals.records;
    if (request.json) {
      files.push_back(SurveyAsJson(input.Name(), survey));
    } else {
      PrintSurvey(input.Name(), survey);
    }
    return HasFindings(survey.totals) ? kFindings : kClean;
  });
  if (request.json) {
    PrintJson({{"files", std::move(files)}, {"records", records}});
  } else {
    std::printf("records %zu\n", records);
  }
  return status;
}

}  // namespace

void AddStat(CLI::App& app, int& status) {
  auto request = std::make_shared<ExchangeRequest>();
  CLI::App* const command = app.add_subcommand("stat", "Show what exchange files hold (ISO 10303-21)");
  command->footer(
      "For each file: its header, bytes, records, records that could be read, complex instances,\n"
      "references, references to no record, records whose name an earlier one has, and how often each\n"
      "keyword occurs: as a record, and as a part of a complex instance. The last line is the number of\n"
      "records of all files. steprt check tells what is wrong with a file.\n\n"
      "Exit status: 0 clean, 1 records that could not be read, dangling references or doubled names,\n"
      "2 wrong usage or a file that cannot be read.\n\n"
      "Example: steprt stat house.ifc");
  AddFiles(*command, *request);
  command->callback([request, &status] { status = Stat(*request); });
}

}  // namespace steprt_tools
