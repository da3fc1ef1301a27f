#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace orbkl4 {

/// How fast a count grows, from a few looks a second.
class SampleRate {
  public:
    /// Takes `count` at `seconds` of a monotonic clock; the growth per second over the last 8
    /// calls, 0 at the first one.
    double operator()(double seconds, std::int64_t count);

    /// Forgets what has been counted.
    void Clear() { known_ = 0; }

  private:
    struct Point {
        double seconds = 0;
        std::int64_t count = 0;
    };

    std::array<Point, 8> points_;  ///< the oldest first
    std::size_t known_ = 0;
};

}  // namespace orbkl4
