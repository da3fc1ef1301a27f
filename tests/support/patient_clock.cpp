#include "support/patient_clock.h"

#include "platform/system/clock.h"

#include <atomic>
#include <chrono>
#include <utility>

namespace orbkl4::test {

namespace {

std::atomic<std::int32_t> milliseconds = 0;

}  // namespace

PatientClock::PatientClock(std::function<void()> sensor)
    : thread_([sensor = std::move(sensor)](const std::stop_token& stopped) {
          for (; !stopped.stop_requested(); ++milliseconds) {
              std::this_thread::sleep_for(std::chrono::milliseconds(1));
              sensor();
          }
      }) {
    ReplaceTickCount([] { return milliseconds.load(); });
}

PatientClock::~PatientClock() { ReplaceTickCount(nullptr); }

}  // namespace orbkl4::test
