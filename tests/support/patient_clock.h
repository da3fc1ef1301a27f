#pragma once

#include <functional>
#include <thread>

namespace orbkl4::test {

/// Replaces the tick count by one that a busy machine slows down, so that the sensor, on a thread
/// of its own, answers within the waits of the program however little processor time it gets.
class PatientClock {
  public:
    /// Counts a millisecond, on a thread of its own, each time after it has slept for one and
    /// `sensor` has returned, which waits until the sensor's thread has done its work.
    explicit PatientClock(std::function<void()> sensor);
    ~PatientClock();

  private:
    std::jthread thread_;
};

}  // namespace orbkl4::test
