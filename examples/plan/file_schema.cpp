#include "file_schema.h"

#include <cctype>
#include <cstddef>
#include <fstream>

namespace plan {
namespace {

constexpr std::size_t kHead = 65536;

std::string HeadOf(const std::string& path) {
  std::string head(kHead, '\0');
  std::ifstream file(path, std::ios::binary);
  file.read(head.data(), static_cast<std::streamsize>(kHead));
  head.resize(static_cast<std::size_t>(file.gcount()));
  return head;
}

bool IsXmlHead(const std::string& head) { return head.compare(0, 5, "<?xml") == 0; }

// The first text after the keyword.
std::string InClearText(const std::string& head) {
  const std::size_t keyword = head.find("FILE_SCHEMA");
  const std::size_t open = head.find('\'', keyword);
  const std::size_t close = head.find('\'', open + 1);
  if (keyword == std::string::npos || open == std::string::npos || close == std::string::npos) return "";
  return head.substr(open + 1, close - open - 1);
}

// The first element, after the declaration and the comments.
std::string InXml(const std::string& head) {
  for (std::size_t at = head.find('<'); at != std::string::npos; at = head.find('<', at + 1)) {
    std::size_t end = at + 1;
    while (end < head.size() && std::isalnum(static_cast<unsigned char>(head[end]))) ++end;
    if (end > at + 1) return head.substr(at + 1, end - at - 1);
  }
  return "";
}

}  // namespace

std::string SchemaOf(const std::string& path) {
  const std::string head = HeadOf(path);
  return IsXmlHead(head) ? InXml(head) : InClearText(head);
}

bool IsXml(const std::string& path) { return IsXmlHead(HeadOf(path)); }

}  // namespace plan
