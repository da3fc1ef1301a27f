#include "acquire/screens/view_fixture.h"
#include "platform/system/clock.h"
#include "platform/windows/screen_registry.h"
#include "support/box_answerer.h"

namespace orbkl4::test {

namespace {

const Bytes rawFrame = Frame(0x01, {1, 2, 3, 4, 5, 6, 7, 8, 9, 1000});
const std::vector<std::string> rawTexts{"1", "1", "9", "1000"};
const std::vector<std::string> rawFields{"txtHeader", "txtRawMag1", "txtRawAngRate3",
                                         "txtTimerTicks"};
const std::vector<std::string> noTexts(4);

class Sampling : public ViewTest {
  protected:
    /// Opens `name` without ticks of its watchdog but those of `Tick`.
    Screen& OpenUnwatched(const char* name) {
        Screen& screen = Open(name);
        Get<Timer>(screen, "TimerSampling").Interval(0);
        return screen;
    }

    /// Ticks the watchdog when the last reply is `seconds` old.
    static void Tick(const Screen& screen, std::int64_t seconds) {
        SampleState.LastReplyTime = MonotonicSeconds() - seconds;
        emit Get<Timer>(screen, "TimerSampling").Tick();
    }
};

}  // namespace

TEST_F(Sampling, NothingOfARejectedReplyIsShownAndTheNextRequestGoesOut) {
    Bytes badSum = rawFrame;
    badSum.back() ^= 1;
    const std::vector<Bytes> spoilt{badSum,
                                    Joined({0x00}, rawFrame),  // a stray byte before it
                                    Joined({0x01, 0x02, 0x03}, rawFrame),
                                    Joined(rawFrame, {0x55}),
                                    Joined(rawFrame, rawFrame),  // two at once
                                    Frame(0x02, {1, 2, 3, 4, 5, 6, 7, 8, 9, 1000})};
    Screen& screen = Open("SensorBits");
    Script(0x01, spoilt);
    Click(screen, "mnuSample");
    ASSERT_TRUE(AwaitRequests(spoilt.size() + 1));
    EXPECT_EQ(Texts(screen, rawFields), noTexts);
    EXPECT_FALSE(Lit(screen, "LED"));
    EXPECT_EQ(Property(screen, "SlideMag1", "value"), "0");
    EXPECT_EQ(sensor.Received(), Bytes(spoilt.size() + 1, 0x01));
    EXPECT_EQ(SampleState.BadReplies, static_cast<std::int64_t>(spoilt.size()));
    EXPECT_EQ(SampleState.Samples, 0);
}

TEST_F(Sampling, AMatrixWithoutDeterminantIsABadPacket) {
    Screen& screen = Open("Matrices");
    // Nothing at all, and columns in arithmetic progression.
    Script(0x0B, {Frame(0x0B, {0, 0, 0, 0, 0, 0, 0, 0, 0, 5}),
                  Frame(0x0B, {1, 2, 3, 4, 5, 6, 7, 8, 9, 5})});
    Click(screen, "mnuSampleGyro");
    ASSERT_TRUE(AwaitRequests(3));
    EXPECT_FALSE(Lit(screen, "LED"));
    EXPECT_EQ(Text(screen, "txtHeader") + Text(screen, "txtS11"), "");
}

TEST_F(Sampling, TheWatchdogRestartsASilentChannelAndFlushesItsPort) {
    Screen& screen = OpenUnwatched("SensorBits");
    auto& lblWarning = Get<QWidget>(screen, "lblWarning");
    auto& port = Get<MSComm>(screen, "MSComm1");
    Bytes tooShort = rawFrame;
    tooShort.pop_back();
    Script(0x01, {rawFrame, tooShort});
    SaveTo(screen, QStringLiteral("a.csv"));
    Click(screen, "mnuSample");
    ASSERT_TRUE(AwaitRequests(2));
    EXPECT_FALSE(lblWarning.isVisible());
    Tick(screen, 0);
    EXPECT_EQ(Texts(screen, rawFields), rawTexts) << "no second has passed yet";
    const auto shortLength = static_cast<std::int16_t>(tooShort.size());
    ASSERT_TRUE(WaitFor([&] { return port.InBufferCount() == shortLength; }));
    Tick(screen, 2);
    Tick(screen, 2);
    ASSERT_TRUE(AwaitRequests(4)) << "asked again, as long as nothing comes";
    EXPECT_TRUE(lblWarning.isVisible());
    EXPECT_TRUE(screen.Menu("mnuSample").Checked());
    EXPECT_EQ(Texts(screen, rawFields), noTexts);
    EXPECT_FALSE(Lit(screen, "LED"));
    EXPECT_TRUE(SampleState.SaveActive);
    sensor.ReplyOnceTo(0x01, rawFrame);
    Tick(screen, 2);
    ASSERT_TRUE(WaitFor([&] { return Texts(screen, rawFields) == rawTexts; }))
        << "the short reply's bytes are gone";
    EXPECT_FALSE(lblWarning.isVisible());
    EXPECT_EQ(Rows(QStringLiteral("a.csv")).size(), 2) << "the same file goes on";
    EXPECT_EQ(std::tie(SampleState.Restarts, SampleState.Samples, SampleState.RowsOfDataFile),
              std::tuple(3, 2, 2));
    Click(screen, "mnuSample");
    EXPECT_FALSE(SampleState.Running);
    Click(screen, "mnuSample");
    EXPECT_TRUE(SampleState.Running);
    EXPECT_EQ(std::tie(SampleState.Restarts, SampleState.Samples, SampleState.RowsOfDataFile),
              std::tuple(0, 0, 2))
        << "a start by hand counts anew, the file goes on";
}

TEST_F(Sampling, SavingGoesOnAndOff) {
    Screen& screen = Open("Vectors");
    const auto saving = [&] {
        EXPECT_EQ(screen.Menu("mnuSave").Checked(), SampleState.SaveActive);
        return SampleState.SaveActive;
    };
    SaveTo(screen, {});
    EXPECT_FALSE(saving()) << "the dialog was cancelled";
    SaveTo(screen, QStringLiteral("one.csv"));
    EXPECT_TRUE(saving());
    Click(screen, "mnuSave");
    EXPECT_FALSE(saving());
    SaveTo(screen, {});
    EXPECT_TRUE(saving()) << "the earlier file goes on";
    Script(0x02, {Frame(0x02, {0, 0, 0, 0, 0, 0, 0, 0, 0, 1})});
    Click(screen, "mnuSampleGyro");
    ASSERT_TRUE(AwaitRequests(2));
    EXPECT_EQ(Rows(QStringLiteral("one.csv")).size(), 1);
    SampleState.LastWrittenTicks = 5;
    Click(screen, "mnuReturn");
    EXPECT_FALSE(SampleState.SaveActive);
    EXPECT_EQ(SampleState.LastWrittenTicks, 0);
    EXPECT_EQ(ActiveScreenName(), "Main");
}

TEST_F(Sampling, AnErrorInAReplyEndsTheChainAndTheWatchdogMendsIt) {
    Screen& screen = OpenUnwatched("SensorBits");
    Script(0x01, {rawFrame, rawFrame});
    const BoxAnswerer boxes({}, QMessageBox::Retry);
    AppState.CounterFrequency = 0;
    Click(screen, "mnuSample");
    ASSERT_TRUE(WaitFor([&] { return boxes.Count() == 1; }));
    EXPECT_EQ(boxes.Error(0), "11 MSComm1_OnComm SensorBits");
    LetPass(20);
    EXPECT_EQ(sensor.Requests().size(), 1U);
    AppState.CounterFrequency = PerformanceFrequency();
    Tick(screen, 2);
    ASSERT_TRUE(AwaitRequests(3));
    EXPECT_EQ(Texts(screen, rawFields), rawTexts);
}

}  // namespace orbkl4::test
