#pragma once

#include "acquire/logic/packets.h"

#include <cstdint>

namespace orbkl4 {

/// Starts the time base at the performance counter `count`, and the write throttle at 0 ticks.
void StartSampleTime(std::int64_t count);

/// Takes the performance counter `count` into `SampleState` and gives the seconds since the start,
/// with two decimals; error 11 (division by zero) while the counter's frequency is unknown.
double ElapsedSampleSeconds(std::int64_t count);

/// Sets `SampleTimeText` to `ElapsedSampleSeconds(count)` in the form of the data files, no blanks.
void StampSampleTime(std::int64_t count);

/// Carries the ticks' wrap into `LastWrittenTicks` and tells whether the current sample lies at
/// least `WriteIntervalTicks` behind the last one written.
bool TakeThrottleStep(Side side);

/// Makes the current sample the last one written.
void MarkSampleWritten(Side side);

/// Whether the last reply is more than one whole second old at `nowSeconds` of the monotonic clock.
bool ReplyOverdue(std::int64_t nowSeconds);

}  // namespace orbkl4
