#pragma once

#include <cstdint>

namespace orbkl4 {

/// `x` rounded to `decimals` (0 to 9) places, by taking x·10ⁿ to the nearest integer, ties to even.
double RoundTo(double x, int decimals);

/// `x` rounded to a 32-bit integer, ties to even; error 6 (overflow) outside its range.
std::int32_t ToInt32(double x);

/// `x` rounded to a 16-bit integer, ties to even; error 6 (overflow) outside its range.
std::int16_t ToInt16(double x);

/// `dividend / divisor`; error 11 (division by zero) where the divisor is 0.
double Divide(double dividend, double divisor);

}  // namespace orbkl4
