#pragma once

#include <string>
#include <vector>

namespace orbkl4::bench {

/// What a measurement must not leave.
struct Aim {
    enum class Kind { None, AtMost, AtLeast } kind = Kind::None;
    double limit = 0;
};

constexpr Aim AtMost(double limit) { return {Aim::Kind::AtMost, limit}; }
constexpr Aim AtLeast(double limit) { return {Aim::Kind::AtLeast, limit}; }

/// The one table that the benchmarks print.
class Table {
  public:
    /// Adds a line; `ours` and `reference` are texts with their units, `judged` is held to `aim`.
    void Add(const std::string& what, const std::string& ours, const std::string& reference,
             double judged, Aim aim = {});

    /// Prints all lines; false where an aim is missed.
    bool Print() const;

  private:
    struct Line {
        std::string what, ours, reference;
        double judged;
        Aim aim;
    };

    std::vector<Line> lines_;
};

/// `value` with three significant digits and `unit`.
std::string Figure(double value, const char* unit);

/// The middle one of `values` (at least one), by size.
double Median(std::vector<double> values);

/// The value below which `share` (0 to 1) of `values` (at least one) lie.
double Percentile(std::vector<double> values, double share);

}  // namespace orbkl4::bench
