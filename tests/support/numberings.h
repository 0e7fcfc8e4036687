// Ways of numbering records.
#ifndef STEPRT_TESTS_SUPPORT_NUMBERINGS_H
#define STEPRT_TESTS_SUPPORT_NUMBERINGS_H

#include <cstdint>

namespace steprt_test {

// Ways of numbering, as files have them or as one would make them to do harm.
struct Numbering {
  const char* name;
  std::uint32_t (*number)(std::uint32_t i);
};
inline const Numbering kNumberings[] = {
    {"ascending", [](std::uint32_t i) { return i + 1; }},
    {"descending", [](std::uint32_t i) { return 1000000 - i; }},
    {"in steps of 4096", [](std::uint32_t i) { return i * 4096; }},
    {"in steps of 65536, round the end", [](std::uint32_t i) { return i * 65536 + (i >> 16); }},
    {"one in each page", [](std::uint32_t i) { return i * 256 + i % 7; }},
    {"negative", [](std::uint32_t i) { return 0u - i; }},
    {"scattered", [](std::uint32_t i) { return i * 2654435761u; }},
    {"sparse clusters", [](std::uint32_t i) { return i / 40 * 100003 + i % 40; }},
};

}  // namespace steprt_test

#endif
