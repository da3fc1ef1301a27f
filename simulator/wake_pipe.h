#pragma once

#include <array>

namespace orbkl4sim {

/// A pipe that wakes a thread from `poll`, also from a signal handler.
class WakePipe {
  public:
    /// Throws std::system_error if the system has no pipe left.
    WakePipe();
    ~WakePipe();
    WakePipe(const WakePipe&) = delete;
    WakePipe& operator=(const WakePipe&) = delete;

    /// Readable from the first `Wake` to the next `Clear`.
    int Descriptor() const { return ends_[0]; }

    void Wake() const noexcept;
    void Clear() const noexcept;

  private:
    std::array<int, 2> ends_{};
};

}  // namespace orbkl4sim
