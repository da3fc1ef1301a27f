#pragma once

#include <cstdint>
#include <ctime>
#include <string>

namespace orbkl4 {

/// Milliseconds since an arbitrary start, as a signed 32-bit count that wraps.
using TickCountSource = std::int32_t (*)();

/// The present tick count, taken from the source in force.
std::int32_t TickCount();

/// Puts `source` in the place of the system's tick count; null restores the system's.
void ReplaceTickCount(TickCountSource source);

/// The high-resolution counter, monotonic; `PerformanceFrequency` counts make a second.
std::int64_t PerformanceCounter();

/// Counts of `PerformanceCounter` per second.
std::int64_t PerformanceFrequency();

/// Whole seconds of the monotonic clock; more than 1 at any time of the program's run.
std::int64_t MonotonicSeconds();

/// The present local date and time.
std::tm LocalTime();

/// The present date, in the system's short form.
std::string LocalDateText();

/// The present time of day, in the system's short form.
std::string LocalTimeText();

}  // namespace orbkl4
