#pragma once

#include "acquire/logic/packets.h"

#include <cstdint>

namespace orbkl4 {

/// Starts the time base at the performance counter `count`, and the write throttle at 0 ticks.
void StartSampleTime(Sampling& sampling, std::int64_t count);

/// Takes the performance counter `count` as that of the current sample and gives the seconds since
/// the start, with two decimals; `frequency` is in counts per second, error 11 (division by zero)
/// for 0.
double ElapsedSampleSeconds(Sampling& sampling, std::int64_t count, std::int64_t frequency);

/// Sets `SampleTimeText` to `ElapsedSampleSeconds` in the form of the data files, without blanks.
void StampSampleTime(Sampling& sampling, std::int64_t count, std::int64_t frequency);

/// Carries the ticks' wrap into `LastWrittenTicks`; whether `sample` lies at least
/// `WriteIntervalTicks` after the last one written.
bool TakeThrottleStep(Sampling& sampling, const Sample& sample, Side side);

/// Makes `sample` the last one written.
void MarkSampleWritten(Sampling& sampling, const Sample& sample, Side side);

/// Whether the last reply is more than one whole second old at `nowSeconds` of the monotonic clock.
bool ReplyOverdue(const Sampling& sampling, std::int64_t nowSeconds);

}  // namespace orbkl4
