// What the command knows about its terminal.
#ifndef STEPRT_TOOLS_CONSOLE_H
#define STEPRT_TOOLS_CONSOLE_H

#include <cstddef>
#include <string>
#include <string_view>

namespace steprt_tools {

// Whether standard output is a terminal and the user does not refuse colours (NO_COLOR).
bool UsesColour();

// A bar on standard error while a large file is read, if that is a terminal.
class ProgressBar {
 public:
  explicit ProgressBar(std::string name);
  ProgressBar(const ProgressBar&) = delete;
  ProgressBar& operator=(const ProgressBar&) = delete;
  ~ProgressBar();  // wipes the bar

  void Show(std::size_t done, std::size_t total);

 private:
  std::string name_;
  std::size_t shown_ = 0;  // percent
  bool visible_;
};

// The text with a blank for each control character, so that a file cannot command the terminal.
std::string Harmless(std::string_view text);

}  // namespace steprt_tools

#endif
