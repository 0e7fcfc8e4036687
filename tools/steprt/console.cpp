#include "console.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>

#if __has_include(<unistd.h>)
#include <unistd.h>
#endif

namespace steprt_tools {

namespace {

bool IsTerminal([[maybe_unused]] std::FILE* stream) {
#if __has_include(<unistd.h>)
  return ::isatty(::fileno(stream)) == 1;
#else
  return false;
#endif
}

}  // namespace

bool UsesColour() {
  const char* const refusal = std::getenv("NO_COLOR");
  return (refusal == nullptr || *refusal == '\0') && IsTerminal(stdout);
}

ProgressBar::ProgressBar(std::string name) : name_(std::move(name)), visible_(IsTerminal(stderr)) {}

ProgressBar::~ProgressBar() {
  if (visible_ && shown_ > 0) std::fputs("\r\033[K", stderr);
}

void ProgressBar::Show(std::size_t done, std::size_t total) {
  constexpr std::size_t kQuick = 8 << 20;  // bytes of a file that need no bar
  constexpr std::size_t kWidth = 30;
  if (!visible_ || total < kQuick) return;
  const std::size_t percent = done / ((total + 99) / 100);
  if (percent == shown_ || percent > 100) return;
  shown_ = percent;
  const std::size_t full = percent * kWidth / 100;
  const std::string bar = std::string(full, '#') + std::string(kWidth - full, '.');
  std::fprintf(stderr, "\r\033[K[%s] %3zu %% %s", bar.c_str(), percent, Harmless(name_).c_str());
}

std::string Harmless(std::string_view text) {
  std::string harmless(text);
  const auto commands = [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7F'; };
  std::replace_if(harmless.begin(), harmless.end(), commands, ' ');
  return harmless;
}

}  // namespace steprt_tools
