#include "base/arithmetic.h"

#include "base/run_time_error.h"

#include <array>
#include <cmath>
#include <limits>

namespace orbkl4 {

namespace {

template <typename Integer>
Integer ToInteger(double x) {
    const double rounded = std::nearbyint(x);
    const bool fits = rounded >= std::numeric_limits<Integer>::min() &&
                      rounded <= std::numeric_limits<Integer>::max();
    if (!fits) Raise(ErrorNumber::Overflow);
    return static_cast<Integer>(rounded);
}

}  // namespace

double RoundTo(double x, int decimals) {
    static constexpr std::array<double, 10> powers{1, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9};
    const double scale = powers.at(static_cast<std::size_t>(decimals));
    return std::nearbyint(x * scale) / scale;
}

std::int32_t ToInt32(double x) { return ToInteger<std::int32_t>(x); }

std::int16_t ToInt16(double x) { return ToInteger<std::int16_t>(x); }

double Divide(double dividend, double divisor) {
    if (divisor == 0) Raise(ErrorNumber::DivisionByZero);
    return dividend / divisor;
}

}  // namespace orbkl4
