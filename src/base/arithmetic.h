#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace orbkl4 {

/// `x` rounded to the nearest integer, ties to even; a zero keeps the sign of `x`.
inline double NearestInteger(double x) {
    // Beyond the shift doubles have no fraction, so adding it rounds, in far less time than a call.
    constexpr double shift = 0x1.8p52;
    constexpr double exactBelow = 0x1p51;
    if (!(std::abs(x) < exactBelow)) return std::nearbyint(x);
    return std::copysign((x + shift) - shift, x);
}

/// `x` rounded to `decimals` (0 to 9) places, by taking x·10ⁿ to the nearest integer, ties to even.
inline double RoundTo(double x, int decimals) {
    constexpr std::array<double, 10> powers{1, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9};
    const double scale = powers.at(static_cast<std::size_t>(decimals));
    return NearestInteger(x * scale) / scale;
}

/// `x` rounded to a 32-bit integer, ties to even; error 6 (overflow) outside its range.
std::int32_t ToInt32(double x);

/// `x` rounded to a 16-bit integer, ties to even; error 6 (overflow) outside its range.
std::int16_t ToInt16(double x);

/// `dividend / divisor`; error 11 (division by zero) where the divisor is 0.
double Divide(double dividend, double divisor);

}  // namespace orbkl4
