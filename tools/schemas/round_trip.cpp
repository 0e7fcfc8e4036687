// round_trip FILE COPY - reads a file with the compiled classes of namespace `schema`, writes it as clear text and as
// XML, reads the XML and writes that too. Prints how many records were read and how many of the values came back.
// A reference is compared by the keyword of its record, because the writer numbers anew.
#include <cstdio>
#include <fstream>
#include <map>
#include <string>
#include <vector>

#include "schema.h"

namespace {

using Values = std::vector<std::string>;

// The text after "#1 = KEY(" cut at the commas that are in no bracket and no text.
Values Split(const std::string& record) {
  Values values(1);
  int depth = 0;
  bool inText = false;
  for (std::size_t i = record.find('(') + 1; i < record.size(); ++i) {
    const char c = record[i];
    if (c == '\'') inText = !inText;
    if (!inText && c == '(') ++depth;
    if (!inText && c == ')' && depth-- == 0) break;
    if (!inText && c == ',' && depth == 0) {
      values.emplace_back();
    } else {
      values.back() += c;
    }
  }
  return values;
}

std::vector<Values> RecordsOf(const std::string& path) {
  std::ifstream in(path);
  std::vector<std::string> lines;
  std::map<std::string, std::string> keywords;  // by number
  for (std::string line; std::getline(in, line);) {
    if (line.empty() || line.front() != '#') continue;
    const std::size_t equals = line.find(" = ");
    keywords[line.substr(0, equals)] = line.substr(equals + 3, line.find('(') - equals - 3);
    lines.push_back(line);
  }
  std::vector<Values> records;
  for (const std::string& line : lines) {
    records.push_back(Split(line));
    for (std::string& value : records.back()) {
      for (std::size_t at = 0; (at = value.find('#', at)) != std::string::npos; ++at) {
        const std::size_t end = value.find_first_not_of("0123456789", at + 1);
        const std::string number = value.substr(at, end - at);
        value.replace(at, number.size(), '#' + keywords[number]);
      }
    }
    records.back().insert(records.back().begin(), line.substr(0, line.find('(')).substr(line.find(" = ") + 3));
  }
  return records;
}

// Prints the share of values that are the same, and the first few that are not. Records are in the same order; one that
// is missing costs all its values.
bool Compare(const char* form, const std::vector<Values>& before, const std::vector<Values>& after) {
  constexpr int kShown = 5;
  int all = 0;
  int lost = 0;
  std::size_t next = 0;
  for (const Values& record : before) {
    const bool there = next < after.size() && after[next][0] == record[0];
    for (std::size_t k = 1; k < record.size(); ++k, ++all) {
      if (there && k < after[next].size() && after[next][k] == record[k]) continue;
      if (++lost <= kShown)
        std::printf("    lost in %s: %s, value %zu: %s\n", form, record[0].c_str(), k, record[k].c_str());
    }
    next += there ? 1 : 0;
  }
  std::printf("  %s: %d of %d values of %zu records read and written whole\n", form, all - lost, all, before.size());
  return lost == 0 && next == after.size();
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  const std::string copy = argv[2];
  schema::Model model;
  const int reports = model.Read(argv[1]);
  model.Write(copy + ".stp");
  model.WriteXml(copy + ".xml");
  schema::Model fromXml;
  fromXml.Name((copy + ".xml").c_str());
  const int xmlReports = fromXml.ReadXml(nullptr);
  fromXml.Write(copy + "_xml.stp");
  std::printf("  %d reports in clear text, %d in XML\n", reports, xmlReports);
  const std::vector<Values> before = RecordsOf(argv[1]);
  const bool text = Compare("clear text", before, RecordsOf(copy + ".stp"));
  const bool xml = Compare("XML", before, RecordsOf(copy + "_xml.stp"));
  return text && xml && reports == 0 && xmlReports == 0 ? 0 : 1;
}
