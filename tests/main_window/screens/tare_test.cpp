#include "link/screens/runs_fixture.h"

#include <QProgressBar>

namespace orbkl4::test {

namespace {

struct Operation {
    const char* entry;
    const char* other;
    std::uint8_t command;
    const char* caption;
    const char* stopped;
    const char* succeeded;

    Bytes Request() const { return {command, 0xC1, 0xC3, 0xC5}; }
};

constexpr auto operations = std::to_array<Operation>({
    {"mnuTare", "mnuRemove", 0x0F, "Keep ORB-KL4 Stationary!",
     "Tare Cooordinate System stopped by user!", "Tare Cooordinate System succeeded!"},
    {"mnuRemove", "mnuTare", 0x11, "Removing Tare for ORB-KL4",
     "Remove Tare Cooordinate System stopped by user!",
     "Remove Tare Cooordinate System succeeded!"},
});
constexpr const Operation& tare = operations[0];
constexpr const Operation& removal = operations[1];
constexpr const char* timers[] = {"TimerTare", "TimerRemove"};

class Tare : public RunTest {
  protected:
    Tare() {
        screen = &main;
        QTest::mouseClick(&Get<QWidget>(main, "picORBKL4"), Qt::MiddleButton,
                          Qt::ShiftModifier | Qt::ControlModifier);
        main.Menu("mnuTools").Enabled(true);
        main.Menu("mnuDisplay").Enabled(true);
        constexpr int tick = 5;
        for (const char* timer : timers) Get<Timer>(main, timer).Interval(tick);
    }

    static bool ProgressShown() {
        const Screen* progress = FindScreen("Progress");
        return progress != nullptr && progress->isVisible();
    }

    bool Running(const Operation& operation) const { return main.Menu(operation.entry).Checked(); }

    void ExpectIdle() const {
        EXPECT_FALSE(Running(tare) || Running(removal));
        for (const char* timer : timers) EXPECT_FALSE(Get<Timer>(main, timer).Enabled());
        EXPECT_FALSE(Get<MSComm>(main, "MSComm1").PortOpen());
        EXPECT_FALSE(ProgressShown());
    }

    Screen& main = *FindScreen("Main");
    BoxAnswerer boxes{{}, goOn};
};

}  // namespace

TEST_F(Tare, SetsAndRemovesTheTareAndLeavesOneEntryDisabled) {
    for (const Operation& operation : operations) {
        const bool sets = &operation == &tare;
        sensor.ClearRecord();
        Click(main, operation.entry);
        ASSERT_TRUE(WaitFor([&] { return boxes.Count() == (sets ? 1U : 2U); }));
        EXPECT_EQ(boxes.Texts().back(), operation.succeeded);
        ExpectIdle();
        EXPECT_EQ(Heard(), (std::vector<Bytes>{polledMode, operation.Request()}));
        EXPECT_EQ(sensor.Word(136) == 8192, !sets) << "the tare matrix, where 8192 is 1";
        EXPECT_EQ(Disabled(), sets ? Names{"mnuSetCalcCycle"} : Names{});
        EXPECT_TRUE(main.Menu("mnuSetCalcCycle").Visible());
    }
}

TEST_F(Tare, ASecondClickStopsIt) {
    sensor.SetSilent(true);
    for (const Operation& operation : operations) {
        sensor.ClearRecord();
        Click(main, operation.entry);
        EXPECT_TRUE(Running(operation));
        EXPECT_TRUE(ProgressShown());
        EXPECT_EQ(ActiveScreenName(), "Main");
        EXPECT_EQ(Property(*FindScreen("Progress"), "fraPB", "title"), operation.caption);
        EXPECT_EQ(Disabled(),
                  (Names{"mnuConnect", "mnuDisplay", "mnuHelp", "mnuEEPROMmap", "mnuSetWriteRate",
                         "mnuSetMode", "mnuGetTemperature", "mnuGetVersionSerial", "mnuAnalog",
                         "mnuHardIronCal", operation.other, "mnuGains", "mnuVertical",
                         "mnuSelfTest", "mnuSetCalcCycle"}));
        FindScreen("Progress")->close();
        EXPECT_TRUE(ProgressShown()) << "only the entry closes it";
        Click(main, operation.entry);
        EXPECT_EQ(boxes.Texts().back(), operation.stopped);
        EXPECT_TRUE(Disabled().empty());
        ExpectIdle();
        EXPECT_EQ(FindScreen("Progress"), nullptr);
        EXPECT_EQ(Heard(), (std::vector<Bytes>{polledMode, operation.Request(), polledMode}));
    }
    EXPECT_EQ(boxes.Count(), 2U);
}

TEST_F(Tare, AReplySplitBetweenTwoTicksIsIgnoredAndTheBarMoves) {
    sensor.SetSilent(true);
    Click(main, "mnuTare");
    const auto& bar = Get<QProgressBar>(*FindScreen("Progress"), "PBar");
    EXPECT_EQ(bar.maximum(), 11);
    std::vector<int> seen{bar.value()};
    QObject::connect(&bar, &QProgressBar::valueChanged, &main,
                     [&](int value) { seen.push_back(value); });
    sensor.SendUnasked({0x0F, 0x01, 0x02});  // 0x0F + 0x0102 = 0x0111
    const std::size_t looks = seen.size() + 2;
    ASSERT_TRUE(WaitFor([&] { return seen.size() >= looks; }));
    sensor.SendUnasked({0x01, 0x11});
    ASSERT_TRUE(WaitFor([&] { return seen.size() > 12; }));
    EXPECT_TRUE(Running(tare));
    for (std::size_t i = 1; i < seen.size(); ++i) EXPECT_EQ(seen[i], seen[i - 1] % 9 + 1);

    sensor.SendUnasked({0x0F, 0x01, 0x02, 0x01, 0x11});
    ASSERT_TRUE(WaitFor([this] { return boxes.Count() == 1; }));
    EXPECT_EQ(boxes.Texts()[0], tare.succeeded);
    Click(main, "mnuTare");
    EXPECT_EQ(Property(*FindScreen("Progress"), "PBar", "value"), "0") << "a fresh bar";
}

TEST_F(Tare, WithoutAPortStartAndStopLeaveTheMenuAsItWas) {
    AppState.CommPort = 99;
    Click(main, "mnuTare");
    EXPECT_TRUE(Running(tare));
    Click(main, "mnuTare");
    EXPECT_EQ(boxes.Texts().back(), tare.stopped);
    EXPECT_TRUE(Disabled().empty());
    ExpectIdle();
}

}  // namespace orbkl4::test
