#include "settings/logic/write_rate.h"

#include "base/arithmetic.h"

namespace orbkl4 {

namespace {

constexpr double millisecondsPerTick = 6.5536;
constexpr double millisecondsPerSecond = 1000;

}  // namespace

double WriteIntervalOf(double samplesPerSecond) {
    return Divide(millisecondsPerSecond, samplesPerSecond) / millisecondsPerTick;
}

double SamplesPerSecondOf(double writeIntervalTicks) {
    return Divide(millisecondsPerSecond, writeIntervalTicks) / millisecondsPerTick;
}

}  // namespace orbkl4
