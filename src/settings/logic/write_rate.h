#pragma once

namespace orbkl4 {

/// The write interval in sensor ticks for a rate in samples per second; error 11 (division by zero)
/// for a rate of 0. A tick counts as 6.5536 ms, whatever the calculation cycle.
double WriteIntervalOf(double samplesPerSecond);

/// The rate in samples per second for a write interval in sensor ticks; error 11 for 0 ticks.
double SamplesPerSecondOf(double writeIntervalTicks);

}  // namespace orbkl4
