#include "acquire/logic/sampling.h"

#include "base/run_time_error.h"

#include <gtest/gtest.h>

#include <array>
#include <vector>

namespace orbkl4 {
namespace {

TEST(SampleTime, TimeTextHasTwoDecimalsAndNoBlank) {
    constexpr std::int64_t frequency = 1'000'000'000;
    Sampling sampling;
    struct Case {
        std::int64_t nanoseconds;
        const char* text;
    };
    for (const auto& [nanoseconds, text] :
         std::to_array<Case>({{0, "0"},
                              {4'000'000, "0"},
                              {10'000'000, ".01"},
                              {125'000'000, ".12"},  // ties to even
                              {375'000'000, ".38"},
                              {250'000'000, ".25"},
                              {1'500'000'000, "1.5"},
                              {60'000'000'000, "60"},
                              {86'400'010'000'000, "86400.01"}})) {
        StartSampleTime(sampling, -7);
        StampSampleTime(sampling, nanoseconds - 7, frequency);
        EXPECT_EQ(sampling.SampleTimeText, text);
        EXPECT_EQ(sampling.SampleNowCount, nanoseconds - 7);
    }
    EXPECT_THROW(StampSampleTime(sampling, 1, 0), RuntimeError);
}

/// One sample's ticks, whether it is to be written, and `LastWrittenTicks` after the step.
struct Step {
    double ticks;
    bool due;
    double lastWritten;
};

void ExpectSteps(Sampling& sampling, Sample& sample, Side side, const std::vector<Step>& steps) {
    for (const auto& [ticks, due, lastWritten] : steps) {
        (side == Side::Gyro ? sample.TicksGyro : sample.TicksInstant) = ticks;
        EXPECT_EQ(TakeThrottleStep(sampling, sample, side), due) << ticks;
        if (due) MarkSampleWritten(sampling, sample, side);
        EXPECT_EQ(sampling.LastWrittenTicks, lastWritten) << ticks;
    }
}

TEST(WriteThrottle, TheGyroSideCarriesTheWrapOnce) {
    Sample sample;
    Sampling sampling;
    sampling.WriteIntervalTicks = 153;
    ExpectSteps(sampling, sample, Side::Gyro,
                {{152, false, 0},
                 {153, true, 153},
                 {305, false, 153},
                 {306, true, 306},
                 {65500, true, 65500},
                 {100, false, -36},
                 {116, false, -36},
                 {117, true, 117}});
}

TEST(WriteThrottle, TheInstantSideLooksAtTheStaleGyroTicks) {
    Sample sample;
    Sampling sampling;
    sampling.WriteIntervalTicks = 1000;
    // No gyro packet yet, its ticks are 0: from the first written sample on, all are due.
    ExpectSteps(sampling, sample, Side::Instant,
                {{999, false, 0}, {1000, true, 1000}, {1001, true, 1001}, {5, true, 5}});
    sample.TicksGyro = 60000;  // stale but above: the interval holds
    sampling.LastWrittenTicks = 2000;
    ExpectSteps(sampling, sample, Side::Instant, {{2999, false, 2000}});
}

TEST(Watchdog, AReplyIsOverdueBeyondOneWholeSecond) {
    Sampling sampling;
    EXPECT_TRUE(ReplyOverdue(sampling, 1000));  // none has ever come
    sampling.LastReplyTime = 1000;
    EXPECT_FALSE(ReplyOverdue(sampling, 1000));
    EXPECT_FALSE(ReplyOverdue(sampling, 1001));
    EXPECT_TRUE(ReplyOverdue(sampling, 1002));
}

}  // namespace
}  // namespace orbkl4
