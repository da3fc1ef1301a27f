#include "acquire/logic/sampling.h"

#include "base/arithmetic.h"
#include "base/number_text.h"

namespace orbkl4 {

namespace {

constexpr double ticksPerWrap = 65536;

double Ticks(const Sample& sample, Side side) { return SideFields(side).ticks.In(sample); }

}  // namespace

void StartSampleTime(Sampling& sampling, std::int64_t count) {
    sampling.SampleNowCount = count;
    sampling.SampleStartCount = count;
    sampling.LastWrittenTicks = 0;
}

double ElapsedSampleSeconds(Sampling& sampling, std::int64_t count, std::int64_t frequency) {
    constexpr int decimals = 2;
    sampling.SampleNowCount = count;
    return RoundTo(Divide(static_cast<double>(count - sampling.SampleStartCount),
                          static_cast<double>(frequency)),
                   decimals);
}

void StampSampleTime(Sampling& sampling, std::int64_t count, std::int64_t frequency) {
    sampling.SampleTimeText = TrimmedFileText(ElapsedSampleSeconds(sampling, count, frequency));
}

bool TakeThrottleStep(Sampling& sampling, const Sample& sample, Side side) {
    // Both sides compare the gyro side's ticks. On the instant side these are stale, so that every
    // sample passes as soon as one has been written above them; that is intended.
    if (sample.TicksGyro < sampling.LastWrittenTicks) sampling.LastWrittenTicks -= ticksPerWrap;
    return Ticks(sample, side) - sampling.LastWrittenTicks >= sampling.WriteIntervalTicks;
}

void MarkSampleWritten(Sampling& sampling, const Sample& sample, Side side) {
    sampling.LastWrittenTicks = Ticks(sample, side);
}

bool ReplyOverdue(const Sampling& sampling, std::int64_t nowSeconds) {
    return nowSeconds - sampling.LastReplyTime > 1;
}

}  // namespace orbkl4
