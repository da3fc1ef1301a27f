#pragma once

#include <cstdint>

namespace orbkl4 {

/// How many values a word of 16 bits has.
inline constexpr std::int32_t wordValues = 65536;

/// A word as a signed number: `x` less 65536 above 32767; the range isn't checked.
constexpr double ToSigned16(double x) { return x > 32767 ? x - 65536 : x; }

/// A signed number as a word: `x` plus 65536 below 0; the range isn't checked.
constexpr double ToUnsigned16(double x) { return x < 0 ? x + 65536 : x; }

/// The high byte of `x`, rounded half to even first; error 6 (overflow) outside 0 to 65535.
std::uint8_t ValueToMSB(double x);

/// The low byte of `x`, rounded half to even first; error 6 (overflow) where that is negative.
std::uint8_t ValueToLSB(double x);

}  // namespace orbkl4
