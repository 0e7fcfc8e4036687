// Long texts of many pieces.
#ifndef STEPRT_TESTS_SUPPORT_REPEAT_H
#define STEPRT_TESTS_SUPPORT_REPEAT_H

#include <string>
#include <string_view>

namespace steprt_test {

// The piece `count` times. In it the piece's number replaces each @, counted from 0, and each ^, counted from 1.
inline std::string Repeat(int count, std::string_view piece) {
  std::string text;
  for (int i = 0; i < count; ++i) {
    for (const char c : piece) {
      if (c == '@' || c == '^') {
        text += std::to_string(c == '@' ? i : i + 1);
      } else {
        text += c;
      }
    }
  }
  return text;
}

}  // namespace steprt_test

#endif
