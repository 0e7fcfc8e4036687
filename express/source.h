// A text with its name and its table of lines. Everything else refers to a text by Place, and computes line and column
// only when a diagnostic is printed.
#ifndef STEPRT_EXPRESS_SOURCE_H
#define STEPRT_EXPRESS_SOURCE_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "excerpt.h"

namespace express {

class Source {
 public:
  // `name` is printed in diagnostics and is usually the path. Line feed, carriage return and the pair end a line.
  Source(std::string name, std::string text);
  Source(const Source&) = delete;  // views into the text and Places refer to this object
  Source& operator=(const Source&) = delete;

  const std::string& Name() const { return name_; }
  std::string_view Text() const { return text_; }

  // An offset beyond the text counts as its end.
  Position PositionAt(std::size_t offset) const;

 private:
  std::string name_;
  std::string text_;
  std::vector<std::size_t> lineStarts_;
};

// Where something is. `source` is null for what is in no text, such as a file that cannot be read.
struct Place {
  const Source* source = nullptr;
  std::uint32_t offset = 0;
};

// A piece of a source, exactly as it is spelled there. It is valid as long as the Source.
struct Text {
  std::string_view text;
  Place place;
};

using Name = Text;

// The form in which names are compared: EXPRESS ignores the case of ASCII letters.
std::string Fold(std::string_view name);

}  // namespace express

#endif
