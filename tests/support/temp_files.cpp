#include "support/temp_files.h"

#include <fcntl.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace steprt_test {
namespace {

class Folder {
 public:
  Folder() : path_(Parent() + "/steprt-XXXXXX") {
    if (!mkdtemp(path_.data())) abort();
  }
  ~Folder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  const std::string& Path() const { return path_; }

 private:
  // TMPDIR, unless there is a dot in it: then no name without an ending could be made.
  static std::string Parent() {
    const char* wanted = getenv("TMPDIR");
    return wanted && *wanted && !strchr(wanted, '.') ? wanted : "/tmp";
  }

  std::string path_;
};

}  // namespace

std::string TempPath(const std::string& name) {
  static const Folder folder;
  return folder.Path() + "/" + name;
}

std::string MakeFile(const std::string& name, const std::string& bytes) {
  const std::string path = TempPath(name);
  std::filesystem::remove(path);  // much faster than to empty it
  std::ofstream(path, std::ios::binary) << bytes;
  return path;
}

std::string BytesOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) return "(none)";
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string MaskedBytesOf(const std::string& path) {
  std::string bytes = BytesOf(path);
  for (std::size_t at; (at = bytes.find(path)) != std::string::npos;) bytes.replace(at, path.size(), "<path>");
  const std::size_t end = bytes.find("');", bytes.find("FILE_NAME("));
  const std::size_t start = end == std::string::npos ? end : bytes.rfind('\'', end - 1);
  if (start != std::string::npos) bytes.replace(start + 1, end - start - 1, "<date>");
  return bytes;
}

int NextHandle() {
  const int next = open("/dev/null", O_RDONLY);
  close(next);
  return next;
}

}  // namespace steprt_test
