#pragma once

#include <cstdint>

namespace orbkl4::cli {

/// Picks samples by the sensor's ticks, so that as many come in a second as asked for.
class Thinner {
  public:
    /// `interval`: ticks from one sample picked to the next, 0 for every sample.
    explicit Thinner(double interval) : interval_(interval) {}

    /// Whether the sample at `ticks`, a count of 16 bits that wraps, is picked; the first one is.
    /// What comes late makes up for nothing.
    bool Picks(std::uint16_t ticks) {
        if (!started_) last_ = ticks;
        started_ = true;
        elapsed_ += static_cast<std::uint16_t>(ticks - last_);
        last_ = ticks;
        if (elapsed_ < due_) return false;
        due_ += interval_;
        if (due_ <= elapsed_) due_ = elapsed_ + interval_;
        return true;
    }

    /// Begins anew, as ticks don't go on over a gap.
    void Restart() { *this = Thinner(interval_); }

  private:
    double interval_;
    double elapsed_ = 0;
    double due_ = 0;
    std::uint16_t last_ = 0;
    bool started_ = false;
};

}  // namespace orbkl4::cli
