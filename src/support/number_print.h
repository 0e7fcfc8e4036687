// Numbers as text: integers as "%d" prints them, reals as "%lg" does, with six significant digits, whatever the host's
// locale and rounding mode.
#ifndef STEPRT_SUPPORT_NUMBER_PRINT_H
#define STEPRT_SUPPORT_NUMBER_PRINT_H

#include <cstddef>

namespace steprt {

inline constexpr std::size_t kIntBuffer = 12;   // a sign and ten digits, and one to spare
inline constexpr std::size_t kRealBuffer = 32;  // what to_chars with six digits may need, rounded up

// Print into a buffer of that size, without a terminator. They return the end of what they wrote.
char* IntToText(char* buffer, int value);
char* RealToText(char* buffer, double value);

// Prints a finite real as ISO 10303-21 has it: 0.5, 12., 1.E-07. It has a point, as few digits as bring the same value
// back, and an exponent unless 1e-4 <= value < 1e15. The buffer has kExactRealBuffer characters.
inline constexpr std::size_t kExactRealBuffer = 40;
char* ExactRealToText(char* buffer, double value);

}  // namespace steprt

#endif
