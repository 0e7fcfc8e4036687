// Passes each file that is named, and each file of a folder that is named, to the target once. What libFuzzer does with
// the same arguments, for every compiler and every sanitiser. It fails when there is nothing to give.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

using Path = std::filesystem::path;

std::vector<Path> FilesOf(const Path& path) {
  if (!std::filesystem::is_directory(path)) return {path};
  std::vector<Path> files;
  for (const auto& entry : std::filesystem::directory_iterator(path)) files.push_back(entry.path());
  std::sort(files.begin(), files.end());
  return files;
}

// False when the file cannot be read. The bytes lie in a block of exactly their size, so that a step beyond is seen.
bool Replay(const Path& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return false;
  std::vector<std::uint8_t> bytes{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  bytes.shrink_to_fit();
  LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  int count = 0;
  for (int i = 1; i < argc; ++i) {
    for (const Path& path : FilesOf(argv[i])) {
      std::printf("%s\n", path.c_str());
      std::fflush(stdout);  // the last line names the file that ended the program
      if (!Replay(path)) return 1;
      ++count;
    }
  }
  std::printf("%d files\n", count);
  return count > 0 ? 0 : 1;
}
