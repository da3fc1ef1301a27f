#include "acquire/logic/sampling.h"

#include "base/run_time_error.h"
#include "frame/logic/app_state.h"

#include <gtest/gtest.h>

#include <array>

namespace orbkl4 {
namespace {

class Sampling : public testing::Test {
  protected:
    void SetUp() override {
        AppState = {};
        SampleState = {};
    }
};

TEST_F(Sampling, TimeTextHasTwoDecimalsAndNoBlank) {
    AppState.CounterFrequency = 1000000000;
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
        StartSampleTime(-7);
        StampSampleTime(nanoseconds - 7);
        EXPECT_EQ(SampleState.SampleTimeText, text);
        EXPECT_EQ(SampleState.SampleNowCount, nanoseconds - 7);
    }
    AppState.CounterFrequency = 0;
    EXPECT_THROW(StampSampleTime(1), RuntimeError);
}

/// One sample's ticks, whether it is to be written, and `LastWrittenTicks` after the step.
struct Step {
    double ticks;
    bool due;
    double lastWritten;
};

TEST_F(Sampling, ThrottleOfTheGyroSideCarriesTheWrapOnce) {
    SampleState.WriteIntervalTicks = 153;
    for (const auto& [ticks, due, lastWritten] : std::to_array<Step>({{152, false, 0},
                                                                      {153, true, 153},
                                                                      {305, false, 153},
                                                                      {306, true, 306},
                                                                      {65500, true, 65500},
                                                                      {100, false, -36},
                                                                      {116, false, -36},
                                                                      {117, true, 117}})) {
        SampleState.TicksGyro = ticks;
        EXPECT_EQ(TakeThrottleStep(Side::Gyro), due) << ticks;
        if (due) MarkSampleWritten(Side::Gyro);
        EXPECT_EQ(SampleState.LastWrittenTicks, lastWritten) << ticks;
    }
}

TEST_F(Sampling, WithoutIntervalEverySampleIsDue) {
    for (const double ticks : {0.0, 65535.0, 65535.0, 0.0, 1.0}) {
        SampleState.TicksGyro = ticks;
        EXPECT_TRUE(TakeThrottleStep(Side::Gyro)) << ticks;
        MarkSampleWritten(Side::Gyro);
    }
}

TEST_F(Sampling, ThrottleOfTheInstantSideLooksAtTheStaleGyroTicks) {
    SampleState.WriteIntervalTicks = 1000;
    // No gyro packet yet, its ticks are 0: from the first written sample on, all are due.
    for (const auto& [ticks, due, lastWritten] : std::to_array<Step>(
             {{999, false, 0}, {1000, true, 1000}, {1001, true, 1001}, {1002, true, 1002}})) {
        SampleState.TicksInstant = ticks;
        EXPECT_EQ(TakeThrottleStep(Side::Instant), due) << ticks;
        if (due) MarkSampleWritten(Side::Instant);
        EXPECT_EQ(SampleState.LastWrittenTicks, lastWritten) << ticks;
    }
    SampleState.TicksGyro = 60000;  // stale but above: the interval holds
    SampleState.LastWrittenTicks = 2000;
    SampleState.TicksInstant = 2999;
    EXPECT_FALSE(TakeThrottleStep(Side::Instant));
}

TEST_F(Sampling, AReplyIsOverdueBeyondOneWholeSecond) {
    EXPECT_TRUE(ReplyOverdue(1000));  // none has ever come
    SampleState.LastReplyTime = 1000;
    EXPECT_FALSE(ReplyOverdue(1000));
    EXPECT_FALSE(ReplyOverdue(1001));
    EXPECT_TRUE(ReplyOverdue(1002));
}

}  // namespace
}  // namespace orbkl4
