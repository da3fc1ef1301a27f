#pragma once

#include <vector>

namespace orbkl4 {

/// A linear scale with marks at the whole multiples of their distances.
struct Axis {
    double minimum = 0;
    double maximum = 100;
    double marks = 20;     ///< distance of the numbered marks, above 0
    double subMarks = 10;  ///< distance of the small marks, above 0

    /// The place of `value` on the axis, from 0 (minimum) to 1 (maximum); a value beyond an end is
    /// at that end, and NaN at the minimum.
    double Fraction(double value) const;

    /// The multiples of `distance` (above 0) on the axis, including those beyond an end by less
    /// than a thousandth of the distance.
    std::vector<double> Multiples(double distance) const;
};

}  // namespace orbkl4
