#include "exchange_files.h"

#include <algorithm>
#include <cstdio>
#include <memory>

#include "console.h"
#include "exchange/lines.h"
#include "exit_status.h"

namespace steprt_tools {

namespace {

constexpr const char* kBold = "\033[1m";
constexpr const char* kRed = "\033[1;31m";
constexpr const char* kMagenta = "\033[1;35m";
constexpr const char* kGreen = "\033[1;32m";
constexpr const char* kPlain = "\033[0m";

const char* ColourOf(exchange::Severity severity) { return severity == exchange::Severity::kError ? kRed : kMagenta; }

std::string Painted(const char* colour, const std::string& text, bool colours) {
  return colours ? colour + text + kPlain : text;
}

Finding FindingOf(const exchange::Report& report, exchange::Position at) {
  return {SeverityOf(report.code), std::string(CodeName(report.code)),      report.message, at.line, at.column,
          report.offset,           report.hasInstance ? report.instance : 0};
}

}  // namespace

void AddFiles(CLI::App& command, ExchangeRequest& request) {
  command.add_option("FILE", request.files, "Files of ISO 10303-21, editions 1 to 3")->required()->type_name(" ");
  command.add_flag("--json", request.json, "Print one JSON document");
}

int ForEachFile(const ExchangeRequest& request, const std::function<int(const exchange::Input&)>& use) {
  int status = kClean;
  for (const std::string& path : request.files) {
    std::string reason;
    const std::unique_ptr<exchange::Input> input = exchange::Input::Open(path, reason);
    if (input != nullptr) {
      status = std::max(status, use(*input));
      continue;
    }
    std::fprintf(stderr, "steprt: error: cannot read '%s': %s\n", Harmless(path).c_str(), reason.c_str());
    status = kUnusable;
  }
  return status;
}

void PrintFinding(const exchange::Input& input, const Finding& finding) {
  const bool colours = UsesColour();
  std::string place = Harmless(input.Name()) + ":" + std::to_string(finding.line) + ":";
  if (finding.column > 0) place += std::to_string(finding.column) + ":";
  const std::string kind = std::string(SeverityName(finding.severity)) + ":";
  std::printf("%s %s %s [%s]\n", Painted(kBold, place, colours).c_str(),
              Painted(ColourOf(finding.severity), kind, colours).c_str(), Harmless(finding.message).c_str(),
              finding.code.c_str());
  if (finding.column == 0) return;
  const express::Excerpt excerpt = express::ExcerptAt(input.Bytes(), finding.offset);
  std::printf("  %s\n  %s%s\n", Harmless(excerpt.text).c_str(), std::string(excerpt.caret, ' ').c_str(),
              Painted(kGreen, "^", colours).c_str());
}

Json FindingAsJson(const Finding& finding) {
  Json entry{{"severity", SeverityName(finding.severity)},
             {"code", finding.code},
             {"message", finding.message},
             {"line", finding.line},
             {"column", finding.column},
             {"offset", finding.offset}};
  if (finding.instance != 0) entry["instance"] = finding.instance;
  return entry;
}

void PrintReports(const exchange::Input& input, const exchange::Reports& reports) {
  exchange::Lines lines(input.Bytes());
  for (const exchange::Report& report : reports.All()) {
    PrintFinding(input, FindingOf(report, lines.PositionAt(report.offset)));
  }
  for (std::size_t i = 0; i < exchange::kCodes; ++i) {
    const auto code = static_cast<exchange::Code>(i);
    if (reports.Dropped(code) == 0) continue;
    std::printf("%s: %zu more of [%s]\n", Harmless(input.Name()).c_str(), reports.Dropped(code), CodeName(code).data());
  }
}

Json ReportsAsJson(const exchange::Input& input, const exchange::Reports& reports) {
  exchange::Lines lines(input.Bytes());
  Json list = Json::array();
  for (const exchange::Report& report : reports.All()) {
    list.push_back(FindingAsJson(FindingOf(report, lines.PositionAt(report.offset))));
  }
  Json counts = Json::object();
  for (std::size_t i = 0; i < exchange::kCodes; ++i) {
    const auto code = static_cast<exchange::Code>(i);
    if (reports.Count(code) > 0) counts[std::string(CodeName(code))] = reports.Count(code);
  }
  return {{"reports", std::move(list)}, {"counts", std::move(counts)}};
}

Json AsJson(const exchange::Header& header) {
  return {{"description", header.description},
          {"implementation_level", header.implementationLevel},
          {"name", header.name},
          {"time_stamp", header.timeStamp},
          {"author", header.author},
          {"organization", header.organization},
          {"preprocessor_version", header.preprocessorVersion},
          {"originating_system", header.originatingSystem},
          {"authorization", header.authorization},
          {"schemas", header.schemas}};
}

Json AsJson(const exchange::Totals& totals) {
  return {{"bytes", totals.bytes},     {"records", totals.records},       {"read", totals.read},
          {"complex", totals.complex}, {"references", totals.references}, {"dangling", totals.dangling},
          {"doubled", totals.doubled}};
}

void PrintJson(const Json& document) {
  constexpr int kIndent = 2;
  std::printf("%s\n", document.dump(kIndent, ' ', false, Json::error_handler_t::replace).c_str());
}

}  // namespace steprt_tools
