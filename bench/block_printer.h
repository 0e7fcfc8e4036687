// What the floors of a write print with: a file through a block, and numbers by the library's own functions, so that a
// ratio tells what the library adds to them.
#ifndef STEPRT_BENCH_BLOCK_PRINTER_H
#define STEPRT_BENCH_BLOCK_PRINTER_H

#include <fcntl.h>
#include <unistd.h>

#include <cstring>
#include <string>
#include <string_view>

#include "steprt/step.h"
#include "support/number_print.h"

namespace bench {

class BlockPrinter {
 public:
  explicit BlockPrinter(const std::string& path) : handle_(::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666)) {}
  ~BlockPrinter() {
    Flush();
    ::close(handle_);
  }
  BlockPrinter(const BlockPrinter&) = delete;
  BlockPrinter& operator=(const BlockPrinter&) = delete;

  void PutChar(char c) { *p_++ = c; }
  void Put(std::string_view text) {
    std::memcpy(p_, text.data(), text.size());
    p_ += text.size();
  }
  void PutInteger(int value) { p_ = steprt::IntToText(p_, value); }
  void PutReal(double value) { p_ = steprt::RealToText(p_, value); }
  void PutNumber(STEPheader* object) {
    if (object->number == 0) object->number = ++lastNumber_;
    PutChar('#');
    PutInteger(object->number);
  }

  // Writes the block if a value and what is around it may not fit. No value of the populations is longer.
  void MakeSpace() {
    constexpr std::ptrdiff_t kLongest = 1024;
    if (block_ + sizeof block_ - p_ < kLongest) Flush();
  }

 private:
  void Flush() {
    for (const char* at = block_; at != p_;) {
      const ssize_t count = ::write(handle_, at, static_cast<std::size_t>(p_ - at));
      if (count <= 0) break;
      at += count;
    }
    p_ = block_;
  }

  const int handle_;
  int lastNumber_ = 0;
  char block_[1 << 16];
  char* p_ = block_;
};

// Calls the action for each object of the chain, after it has removed all numbers.
template <typename Action>
void ForEachUnnumbered(STEPheader* first, Action action) {
  for (STEPheader* object = first; object; object = object->next) object->number = 0;
  for (STEPheader* object = first; object; object = object->next) action(object);
}

}  // namespace bench

#endif
