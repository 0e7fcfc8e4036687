#include "support/table.h"

#include "support/temp_files.h"

namespace steprt_test {
namespace {

Texts Split(const std::string& text, const std::string& separator) {
  Texts parts;
  std::size_t start = 0;
  for (std::size_t end; (end = text.find(separator, start)) != std::string::npos; start = end + separator.size()) {
    parts.push_back(text.substr(start, end - start));
  }
  parts.push_back(text.substr(start));
  return parts;
}

std::string WithoutBlanks(const std::string& text) {
  const std::size_t start = text.find_first_not_of(' ');
  return start == std::string::npos ? "" : text.substr(start, text.find_last_not_of(' ') + 1 - start);
}

std::string Unescape(const std::string& text) {
  std::string bytes;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::string escape = text.substr(i, 2);
    if (escape == "\\x") {
      bytes += static_cast<char>(std::stoi(text.substr(i + 2, 2), nullptr, 16));
      i += 3;
    } else if (escape == "\\n" || escape == "\\r") {
      bytes += escape == "\\n" ? '\n' : '\r';
      ++i;
    } else {
      bytes += text[i];
    }
  }
  return bytes;
}

}  // namespace

std::vector<Texts> Table(const std::string& lines, std::size_t cells) {
  std::vector<Texts> rows;
  for (const std::string& line : Split(lines, "\n")) {
    if (WithoutBlanks(line).substr(0, 2) == "//" || WithoutBlanks(line).empty()) continue;
    Texts& row = rows.emplace_back(Split(line, " |"));
    for (std::string& cell : row) cell = Unescape(WithoutBlanks(cell));
    row.resize(cells);
  }
  return rows;
}

std::vector<Texts> TableOf(const std::string& file, std::size_t cells) {
  return Table(BytesOf(STEPRT_TEST_FOLDER "/" + file), cells);
}

Texts ItemsOf(const std::string& cell) { return cell.empty() ? Texts() : Split(cell, " & "); }

}  // namespace steprt_test
