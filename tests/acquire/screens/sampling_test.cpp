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
    /// A packet of vectors of the ticks given, all else 0.
    static Bytes Ticks(unsigned ticks) { return Frame(0x02, {0, 0, 0, 0, 0, 0, 0, 0, 0, ticks}); }

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

    static std::vector<int> SavedTicks(const QString& leaf) {
        std::vector<int> ticks;
        for (const QString& row : Rows(leaf))
            ticks.push_back(row.section(QLatin1Char(','), -1).toInt());
        return ticks;
    }
};

}  // namespace

TEST_F(Sampling, AReplyInAnyCuttingIsOneReply) {
    Screen& screen = Open("SensorBits");
    std::vector<std::vector<std::size_t>> cuttings;
    for (std::size_t place = 1; place < rawFrame.size(); ++place) cuttings.push_back({place});
    cuttings.emplace_back(rawFrame.size() - 1, 1);  // byte by byte
    for (const auto& sizes : cuttings) {
        sensor.CutReplies(sizes, std::chrono::microseconds(300));
        Script(0x01, {rawFrame});
        Click(screen, "mnuSample");
        ASSERT_TRUE(AwaitRequests(2)) << sizes[0];
        EXPECT_EQ(Texts(screen, rawFields), rawTexts) << sizes[0];
        EXPECT_TRUE(Lit(screen, "LED"));
        Click(screen, "mnuSample");
    }
}

TEST_F(Sampling, NothingOfARejectedReplyIsShownAndTheNextRequestGoesOut) {
    std::vector<Bytes> spoilt;
    for (std::size_t bit = 0; bit < 8 * rawFrame.size(); ++bit) {
        Bytes reply = rawFrame;
        reply[bit / 8] ^= static_cast<std::uint8_t>(1U << (bit % 8));
        spoilt.push_back(reply);
    }
    spoilt.push_back(Joined({0x00}, rawFrame));              // a stray byte before it
    spoilt.push_back(Joined({0x01, 0x02, 0x03}, rawFrame));  // more, the first like a header
    spoilt.push_back(Joined(rawFrame, {0x55}));              // one too many
    spoilt.push_back(Joined(rawFrame, rawFrame));            // two at once
    spoilt.push_back(Frame(0x02, {1, 2, 3, 4, 5, 6, 7, 8, 9, 1000}));  // another's header
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

TEST_F(Sampling, TheLampGoesOutForABadSumAndStaysForAWrongReply) {
    Screen& screen = Open("Quaternions");
    const Bytes good = Frame(0x04, {8192, 0, 0, 0, 7});
    const Bytes twin = Frame(0x05, {8192, 0, 0, 0, 7});
    Bytes badSum = good;
    badSum.back() ^= 1;
    Script(0x04, {good, twin});
    Click(screen, "mnuSampleInstant");
    ASSERT_TRUE(AwaitRequests(3));
    EXPECT_TRUE(Lit(screen, "LEDI"));
    EXPECT_FALSE(Lit(screen, "LED"));
    EXPECT_EQ(Text(screen, "txtHeaderI"), "4");
    EXPECT_EQ(Text(screen, "txtHeader"), "") << "the twin's panel is not its own";
    Click(screen, "mnuSampleInstant");
    Script(0x04, {good, badSum});
    Click(screen, "mnuSampleInstant");
    ASSERT_TRUE(AwaitRequests(3));
    EXPECT_FALSE(Lit(screen, "LEDI"));
    EXPECT_EQ(Text(screen, "txtTimerTicksI"), "7") << "the last good values stand";
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
    Script(0x02, {Ticks(1), Ticks(2)});
    Click(screen, "mnuSampleGyro");
    ASSERT_TRUE(AwaitRequests(3));
    EXPECT_EQ(SavedTicks(QStringLiteral("one.csv")), (std::vector<int>{1, 2}));
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
