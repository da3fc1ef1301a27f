#pragma once

#include <cstdint>
#include <ctime>
#include <string>

namespace orbkl4 {

/// Milliseconds since an arbitrary start, as a signed 32-bit count that wraps.
using TickCountSource = std::int32_t (*)();

/// The present tick count.
std::int32_t TickCount();

/// Takes the tick count from `source` from now on; null restores the system's own.
void ReplaceTickCount(TickCountSource source);

/// The high-resolution counter, monotonic; `PerformanceFrequency` counts make a second.
std::int64_t PerformanceCounter();

/// Counts of `PerformanceCounter` per second.
std::int64_t PerformanceFrequency();

/// Whole seconds of the monotonic clock, always above 1.
std::int64_t MonotonicSeconds();

/// The present local date and time.
std::tm LocalTime();

/// The present date, in the system's short form.
std::string LocalDateText();

/// The present time of day, in the system's short form.
std::string LocalTimeText();

}  // namespace orbkl4
