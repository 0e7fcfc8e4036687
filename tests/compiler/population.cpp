#include "population.h"

#include <charconv>
#include <cstdint>
#include <unordered_map>
#include <utility>

#include "exchange/input.h"
#include "exchange/parser.h"
#include "exchange/reports.h"
#include "steprt/encoding.h"

namespace steprt_test {
namespace {

using exchange::Record;
using exchange::Token;
using exchange::TokenKind;

// A text between its apostrophes, with doubled ones made single and the ends of lines left out, decoded.
std::string TextAt(std::string_view bytes, Token token) {
  std::string text;
  for (std::size_t i = token.Offset() + 1; i < bytes.size(); ++i) {
    if (bytes[i] == '\'' && (i + 1 == bytes.size() || bytes[++i] != '\'')) break;
    if (bytes[i] != '\n' && bytes[i] != '\r') text += bytes[i];
  }
  return steprt::DecodeText(text);
}

std::string_view BinaryAt(std::string_view bytes, Token token) {
  const std::size_t end = bytes.find('"', token.Offset() + 1);
  return bytes.substr(token.Offset(), end - token.Offset() + 1);
}

double NumberOf(std::string_view spelling) {
  if (spelling.front() == '+') spelling.remove_prefix(1);
  double number = 0;
  std::from_chars(spelling.data(), spelling.data() + spelling.size(), number);
  return number;
}

class Collector : public exchange::Sink {
 public:
  void OnHeader(const Record& /*record*/) override {}
  void OnOther(const Record& /*record*/) override {}
  void OnProgress(std::size_t /*offset*/) override {}
  void OnRecord(const Record& record) override {
    places.emplace(record.name, records.size() + 1);
    records.push_back({'L', "", 0, 0, Members(record, 0, record.tokens.size())});
  }

  std::vector<Tree> records;
  std::unordered_map<std::uint64_t, std::size_t> places;

 private:
  std::vector<Tree> Members(const Record& record, std::size_t from, std::size_t to) {
    std::vector<Tree> members;
    while (from < to) {
      const std::size_t next = AfterValue(record.tokens, from);
      members.push_back(TreeAt(record, from, next));
      from = next;
    }
    return members;
  }
  Tree TreeAt(const Record& record, std::size_t from, std::size_t to) {
    const Token token = record.tokens[from];
    const std::string spelling(Spelling(record.bytes, token));
    switch (token.Kind()) {
      case TokenKind::kKeyword:
      case TokenKind::kUserKeyword:
        return {'K', spelling, 0, 0, Members(record, from + 2, to - 1)};
      case TokenKind::kOpen:
        return {'L', "", 0, 0, Members(record, from + 1, to - 1)};
      case TokenKind::kInteger:
      case TokenKind::kReal:
        return {'N', "", NumberOf(spelling), 0};
      case TokenKind::kText:
        return {'T', TextAt(record.bytes, token), 0, 0};
      case TokenKind::kBinary:
        return {'B', std::string(BinaryAt(record.bytes, token)), 0, 0};
      case TokenKind::kEnumerator:
        return {'E', spelling, 0, 0};
      case TokenKind::kReference:
        return {'R', "", 0, InstanceName(record.bytes, token)};
      default:
        return {token.Is(TokenKind::kDerived) ? '*' : '$', "", 0, 0};
    }
  }
};

// Names become places.
void ResolveNames(Tree& tree, const std::unordered_map<std::uint64_t, std::size_t>& places) {
  if (tree.kind == 'R') {
    const auto place = places.find(tree.record);
    tree.record = place == places.end() ? 0 : place->second;
  }
  for (Tree& member : tree.members) ResolveNames(member, places);
}

}  // namespace

std::string Print(const Tree& tree) {
  if (tree.kind == 'N') {
    char text[32];
    return {text, std::to_chars(text, text + sizeof text, tree.number).ptr};
  }
  if (tree.kind == 'R') return '@' + std::to_string(tree.record);
  if (tree.kind == 'T') return '\'' + tree.text + '\'';
  if (tree.kind != 'K' && tree.kind != 'L') return tree.text.empty() ? std::string(1, tree.kind) : tree.text;
  std::string text = tree.text + '(';
  for (const Tree& member : tree.members) text += (&member == &tree.members[0] ? "" : ",") + Print(member);
  return text + ')';
}

FilePopulation PopulationOfFile(const std::string& path) {
  FilePopulation population;
  std::string reason;
  const auto input = exchange::Input::Open(path, reason);
  if (!input) return {{}, {reason}};
  exchange::Reports reports;
  Collector collector;
  exchange::Parser(input->Bytes(), reports, collector).Run();
  for (const exchange::Report& report : reports.All()) {
    population.faults.push_back(std::string(CodeName(report.code)) + " at " + std::to_string(report.offset) + ": " +
                                report.message);
  }
  for (Tree& record : collector.records) ResolveNames(record, collector.places);
  population.records = std::move(collector.records);
  return population;
}

}  // namespace steprt_test
