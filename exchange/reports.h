// Collects what is wrong with a file. Of each code only the first few reports are kept; the others are counted, so that
// a broken file costs neither memory nor patience.
#ifndef STEPRT_EXCHANGE_REPORTS_H
#define STEPRT_EXCHANGE_REPORTS_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "codes.h"

namespace exchange {

struct Report {
  Code code = Code::kSyntax;
  std::size_t offset = 0;
  std::string message;
  // Of the record that the report is about, where there is one.
  bool hasInstance = false;
  std::uint64_t instance = 0;
};

class Reports {
 public:
  explicit Reports(std::size_t mostOfOne = 5) : mostOfOne_(mostOfOne) {}

  // Counts a report. `message` makes its text and is called only if the report is kept.
  template <class Message>
  void Add(Code code, std::size_t offset, Message message) {
    if (Take(code)) all_.push_back({code, offset, message(), hasInstance_, instance_});
  }

  // Later reports are about this record.
  void Enter(std::uint64_t instance) {
    hasInstance_ = true;
    instance_ = instance;
  }
  void Leave() { hasInstance_ = false; }
  // While muted, nothing is counted.
  void Mute(bool mute) { muted_ = mute; }

  // Sorts what is kept by its place in the file.
  void Sort();

  const std::vector<Report>& All() const { return all_; }
  std::size_t Count(Code code) const { return counts_[static_cast<std::size_t>(code)]; }
  // How many of that code are counted and not kept.
  std::size_t Dropped(Code code) const;
  std::size_t Total(Severity severity) const;

 private:
  bool Take(Code code);

  std::vector<Report> all_;
  std::array<std::size_t, kCodes> counts_{};
  std::size_t mostOfOne_;
  std::uint64_t instance_ = 0;
  bool hasInstance_ = false;
  bool muted_ = false;
};

}  // namespace exchange

#endif
