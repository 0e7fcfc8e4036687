#include "input.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <utility>

#if __has_include(<sys/mman.h>)
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>
#define STEPRT_EXCHANGE_MAPS 1
#endif

namespace exchange {

namespace {

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};

bool ReadAll(std::FILE* file, std::string& text) {
  if (file == nullptr) return false;
  char block[1 << 16];
  for (std::size_t n; (n = std::fread(block, 1, sizeof block, file)) > 0;) text.append(block, n);
  return std::ferror(file) == 0;
}

}  // namespace

std::unique_ptr<Input> Input::FromText(std::string name, std::string text) {
  std::unique_ptr<Input> input(new Input);
  input->name_ = std::move(name);
  input->text_ = std::move(text);
  input->bytes_ = input->text_;
  return input;
}

#ifdef STEPRT_EXCHANGE_MAPS

std::unique_ptr<Input> Input::Open(const std::string& path, std::string& reason) {
  const std::unique_ptr<std::FILE, CloseFile> file(std::fopen(path.c_str(), "rb"));
  struct stat status {};
  std::unique_ptr<Input> input(new Input);
  input->name_ = path;
  if (file != nullptr && ::fstat(::fileno(file.get()), &status) == 0 && S_ISREG(status.st_mode) && status.st_size > 0 &&
      input->Map(::fileno(file.get()), static_cast<std::size_t>(status.st_size))) {
    return input;
  }
  if (!ReadAll(file.get(), input->text_)) {
    reason = std::strerror(errno);
    return nullptr;
  }
  input->bytes_ = input->text_;
  return input;
}

// The mapping is one page longer than needed, so that a NUL follows a file that fills its last page.
bool Input::Map(int file, std::size_t size) {
  const auto page = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
  mappingSize_ = (size / page + 2) * page;
  void* const memory = ::mmap(nullptr, mappingSize_, PROT_READ, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (memory == MAP_FAILED) return false;
  mapping_ = memory;
  if (::mmap(memory, size, PROT_READ, MAP_PRIVATE | MAP_FIXED, file, 0) == MAP_FAILED) return false;
  ::madvise(memory, size, MADV_SEQUENTIAL);
  bytes_ = {static_cast<const char*>(memory), size};
  return true;
}

void Input::Release(std::size_t offset) const {
  const auto page = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
  if (mapping_ != nullptr) ::madvise(mapping_, offset / page * page, MADV_DONTNEED);
}

Input::~Input() {
  if (mapping_ != nullptr) ::munmap(mapping_, mappingSize_);
}

#else

std::unique_ptr<Input> Input::Open(const std::string& path, std::string& reason) {
  const std::unique_ptr<std::FILE, CloseFile> file(std::fopen(path.c_str(), "rb"));
  std::string text;
  if (ReadAll(file.get(), text)) return FromText(path, std::move(text));
  reason = std::strerror(errno);
  return nullptr;
}

void Input::Release(std::size_t) const {}

Input::~Input() = default;

#endif

}  // namespace exchange
