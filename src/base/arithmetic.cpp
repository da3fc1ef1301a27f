#include "base/arithmetic.h"

#include "base/run_time_error.h"

#include <limits>

namespace orbkl4 {

namespace {

template <typename Integer>
Integer ToInteger(double x) {
    const double rounded = NearestInteger(x);
    const bool fits = rounded >= std::numeric_limits<Integer>::min() &&
                      rounded <= std::numeric_limits<Integer>::max();
    if (!fits) Raise(ErrorNumber::Overflow);
    return static_cast<Integer>(rounded);
}

}  // namespace

std::int32_t ToInt32(double x) { return ToInteger<std::int32_t>(x); }

std::int16_t ToInt16(double x) { return ToInteger<std::int16_t>(x); }

double Divide(double dividend, double divisor) {
    if (divisor == 0) Raise(ErrorNumber::DivisionByZero);
    return dividend / divisor;
}

}  // namespace orbkl4
