#pragma once

#include <thread>

namespace orbkl4::test {

/// Replaces the tick count by one that a busy machine slows down: a thread of its own counts the
/// milliseconds that it sleeps. So the sensor, on another thread, can answer within the waits of
/// the program however little processor time both get.
class PatientClock {
  public:
    PatientClock();
    ~PatientClock();
    PatientClock(const PatientClock&) = delete;
    PatientClock& operator=(const PatientClock&) = delete;

  private:
    std::jthread thread_;
};

}  // namespace orbkl4::test
