#include "acquire/logic/sampling.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace orbkl4 {
namespace {

TEST(SampleTime, TimeTextHasTwoDecimalsAndNoBlank) {
    constexpr std::int64_t frequency = 1'000'000'000;
    Sampling sampling;
    const std::pair<std::int64_t, const char*> cases[] = {{4'000'000, "0"},
                                                          {125'000'000, ".12"},  // ties to even
                                                          {375'000'000, ".38"},
                                                          {1'500'000'000, "1.5"},
                                                          {86'400'010'000'000, "86400.01"}};
    for (const auto& [nanoseconds, text] : cases) {
        StartSampleTime(sampling, -7);
        StampSampleTime(sampling, nanoseconds - 7, frequency);
        EXPECT_EQ(sampling.SampleTimeText, text);
        EXPECT_EQ(sampling.SampleNowCount, nanoseconds - 7);
    }
}

/// Those of the `ticks` of `side` whose samples are to be written.
std::vector<double> Due(Sampling& sampling, Sample& sample, Side side,
                        const std::vector<double>& ticks) {
    std::vector<double> due;
    for (const double now : ticks) {
        (side == Side::Gyro ? sample.TicksGyro : sample.TicksInstant) = now;
        if (!TakeThrottleStep(sampling, sample, side)) continue;
        MarkSampleWritten(sampling, sample, side);
        due.push_back(now);
    }
    return due;
}

TEST(WriteThrottle, TheGyroSideCarriesTheWrapOnce) {
    Sample sample;
    Sampling sampling;
    sampling.WriteIntervalTicks = 153;
    EXPECT_EQ(Due(sampling, sample, Side::Gyro, {152, 153, 305, 306, 65500, 100, 116, 117}),
              (std::vector<double>{153, 306, 65500, 117}));
}

TEST(WriteThrottle, TheInstantSideLooksAtTheStaleGyroTicks) {
    Sample sample;
    Sampling sampling;
    sampling.WriteIntervalTicks = 1000;
    // No gyro packet yet, its ticks are 0: from the first written sample on, all are due.
    EXPECT_EQ(Due(sampling, sample, Side::Instant, {999, 1000, 1001, 5}),
              (std::vector<double>{1000, 1001, 5}));
    sample.TicksGyro = 60000;  // stale but above: the interval holds
    sampling.LastWrittenTicks = 2000;
    EXPECT_EQ(Due(sampling, sample, Side::Instant, {2999, 3000}), std::vector<double>{3000});
}

TEST(Watchdog, AReplyIsOverdueBeyondOneWholeSecond) {
    Sampling sampling;
    EXPECT_TRUE(ReplyOverdue(sampling, 1000));  // none has ever come
    sampling.LastReplyTime = 1000;
    EXPECT_FALSE(ReplyOverdue(sampling, 1001));
    EXPECT_TRUE(ReplyOverdue(sampling, 1002));
}

}  // namespace
}  // namespace orbkl4
