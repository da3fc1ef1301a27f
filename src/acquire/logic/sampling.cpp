#include "acquire/logic/sampling.h"

#include "base/arithmetic.h"
#include "base/number_text.h"
#include "state/app_state.h"

namespace orbkl4 {

namespace {

constexpr double ticksPerWrap = 65536;

double Ticks(Side side) { return SideFields(side).ticks.In(SampleState); }

}  // namespace

void StartSampleTime(std::int64_t count) {
    SampleState.SampleNowCount = count;
    SampleState.SampleStartCount = count;
    SampleState.LastWrittenTicks = 0;
}

double ElapsedSampleSeconds(std::int64_t count) {
    SampleState.SampleNowCount = count;
    return RoundTo(Divide(static_cast<double>(count - SampleState.SampleStartCount),
                          static_cast<double>(AppState.CounterFrequency)),
                   2);
}

void StampSampleTime(std::int64_t count) {
    SampleState.SampleTimeText = TrimmedFileText(ElapsedSampleSeconds(count));
}

bool TakeThrottleStep(Side side) {
    // Either side looks at the gyro side's ticks: on the instant side they are stale, so every
    // sample of it passes as soon as one has been written above them. That is how it is meant.
    if (SampleState.TicksGyro < SampleState.LastWrittenTicks)
        SampleState.LastWrittenTicks -= ticksPerWrap;
    return Ticks(side) - SampleState.LastWrittenTicks >= SampleState.WriteIntervalTicks;
}

void MarkSampleWritten(Side side) { SampleState.LastWrittenTicks = Ticks(side); }

bool ReplyOverdue(std::int64_t nowSeconds) { return nowSeconds - SampleState.LastReplyTime > 1; }

}  // namespace orbkl4
