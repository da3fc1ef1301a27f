#pragma once

#include <vector>

namespace orbkl4 {

/// A linear scale whose marks stand at the whole multiples of their distances.
struct Axis {
    double minimum = 0;
    double maximum = 100;
    double marks = 20;     ///< distance of the numbered marks, above 0
    double subMarks = 10;  ///< distance of the small marks, above 0

    /// Where `value` stands, 0 (minimum) to 1 (maximum); a value beyond an end stands at that end.
    double Fraction(double value) const;

    /// The multiples of `distance` on the axis; one that misses an end by under a thousandth of the
    /// distance counts as on it.
    std::vector<double> Multiples(double distance) const;
};

}  // namespace orbkl4
