#include "express/cpp/layout.h"

#include <algorithm>

namespace express::cpp {

std::string Comment(std::string_view text) {
  std::string out;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
    std::string line(text.substr(0, end));
    std::replace_if(
        line.begin(), line.end(), [](char c) { return static_cast<unsigned char>(c) > '~'; }, '?');
    line.erase(line.find_last_not_of(" \t\f\v") + 1);
    if (line.ends_with('\\') || line.ends_with("?\?/")) line += " --";
    if (!line.empty()) out += "// " + line + '\n';
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return out;
}

std::string Quoted(std::string_view text) { return '"' + std::string(text) + '"'; }

std::string Joined(const std::vector<std::string>& items, const std::string& indent) {
  constexpr std::size_t kColumns = 118;
  std::string out;
  std::string line = indent;
  for (const std::string& item : items) {
    const bool last = &item == &items.back();
    if (line.size() > indent.size() && line.size() + item.size() + 1 > kColumns) {
      line.pop_back();
      out += line + '\n';
      line = indent;
    }
    line += item + (last ? "" : ", ");
  }
  return out + line;
}

std::string FileStem(const std::string& nameSpace) {
  std::string stem = nameSpace;
  for (std::size_t colons; (colons = stem.find("::")) != std::string::npos;) stem.replace(colons, 2, "_");
  return stem;
}

}  // namespace express::cpp
