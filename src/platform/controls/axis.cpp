#include "platform/controls/axis.h"

#include <algorithm>
#include <cmath>

namespace orbkl4 {

double Axis::Fraction(double value) const {
    const double fraction = (value - minimum) / (maximum - minimum);
    return std::isnan(fraction) ? 0 : std::clamp(fraction, 0.0, 1.0);
}

std::vector<double> Axis::Multiples(double distance) const {
    constexpr double slack = 1e-3;
    const auto first = std::lround(std::ceil(minimum / distance - slack));
    const auto last = std::lround(std::floor(maximum / distance + slack));
    std::vector<double> multiples;
    for (long n = first; n <= last; ++n) multiples.push_back(static_cast<double>(n) * distance);
    return multiples;
}

}  // namespace orbkl4
