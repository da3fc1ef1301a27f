#include "acquire/logic/sampling.h"

#include "base/run_time_error.h"
#include "state/app_state.h"

#include <gtest/gtest.h>

#include <array>
#include <vector>

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

void ExpectSteps(Side side, double& sideTicks, const std::vector<Step>& steps) {
    for (const auto& [ticks, due, lastWritten] : steps) {
        sideTicks = ticks;
        EXPECT_EQ(TakeThrottleStep(side), due) << ticks;
        if (due) MarkSampleWritten(side);
        EXPECT_EQ(SampleState.LastWrittenTicks, lastWritten) << ticks;
    }
}

TEST_F(Sampling, ThrottleOfTheGyroSideCarriesTheWrapOnce) {
    SampleState.WriteIntervalTicks = 153;
    ExpectSteps(Side::Gyro, SampleState.TicksGyro,
                {{152, false, 0},
                 {153, true, 153},
                 {305, false, 153},
                 {306, true, 306},
                 {65500, true, 65500},
                 {100, false, -36},
                 {116, false, -36},
                 {117, true, 117}});
}

TEST_F(Sampling, ThrottleOfTheInstantSideLooksAtTheStaleGyroTicks) {
    SampleState.WriteIntervalTicks = 1000;
    // No gyro packet yet, its ticks are 0: from the first written sample on, all are due.
    ExpectSteps(Side::Instant, SampleState.TicksInstant,
                {{999, false, 0}, {1000, true, 1000}, {1001, true, 1001}, {5, true, 5}});
    SampleState.TicksGyro = 60000;  // stale but above: the interval holds
    SampleState.LastWrittenTicks = 2000;
    ExpectSteps(Side::Instant, SampleState.TicksInstant, {{2999, false, 2000}});
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
