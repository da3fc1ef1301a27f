#include "frame/logic/app_state.h"
#include "platform/mscomm.h"
#include "platform/screen_registry.h"
#include "platform/timer.h"
#include "support/box_hand.h"
#include "support/screens/screen_fixture.h"
#include "support/wait.h"

#include <QGroupBox>
#include <QProgressBar>

#include <set>

namespace orbkl4::test {

namespace {

using Strings = std::vector<std::string>;

const Bytes polledMode{0x29, 0x71, 0x00, 0x84, 0x00, 0x00, 0xAA};

struct Operation {
    const char* entry;
    const char* other;
    const char* timer;
    Bytes request;
    const char* caption;
    const char* stopped;
    const char* succeeded;
};

const Operation tare{"mnuTare",
                     "mnuRemove",
                     "TimerTare",
                     {0x0F, 0xC1, 0xC3, 0xC5},
                     "Keep ORB-KL4 Stationary!",
                     "Tare Cooordinate System stopped by user!",
                     "Tare Cooordinate System succeeded!"};
const Operation removal{"mnuRemove",
                        "mnuTare",
                        "TimerRemove",
                        {0x11, 0xC1, 0xC3, 0xC5},
                        "Removing Tare for ORB-KL4",
                        "Remove Tare Cooordinate System stopped by user!",
                        "Remove Tare Cooordinate System succeeded!"};

class Tare : public ScreenTest {
  protected:
    Tare() {
        QTest::mouseClick(&Get<QWidget>(main, "picORBKL4"), Qt::MiddleButton,
                          Qt::ShiftModifier | Qt::ControlModifier);
        main.Menu("mnuTools").Enabled(true);
        main.Menu("mnuDisplay").Enabled(true);
        Tick(5);
    }

    /// Sets the time between two looks for the reply.
    void Tick(int milliseconds) {
        for (const char* timer : {"TimerTare", "TimerRemove"})
            Get<Timer>(main, timer).Interval(milliseconds);
    }

    /// The entries among those that the operations disable which are disabled now.
    std::set<std::string> Disabled() const {
        std::set<std::string> disabled;
        for (const char* entry :
             {"mnuConnect", "mnuExit", "mnuDisplay", "mnuHelp", "mnuEEPROMmap", "mnuSetWriteRate",
              "mnuSetMode", "mnuGetTemperature", "mnuGetVersionSerial", "mnuAnalog",
              "mnuHardIronCal", "mnuTare", "mnuRemove", "mnuGains", "mnuVertical", "mnuSelfTest",
              "mnuSetCalcCycle"}) {
            if (!main.Menu(entry).Enabled()) disabled.insert(entry);
        }
        return disabled;
    }

    static bool ProgressShown() {
        const Screen* progress = FindScreen("Progress");
        return progress != nullptr && progress->isVisible();
    }

    bool Running(const Operation& operation) const { return main.Menu(operation.entry).Checked(); }

    void ExpectIdle(const Operation& operation) const {
        EXPECT_FALSE(Running(operation));
        EXPECT_FALSE(Get<Timer>(main, operation.timer).Enabled());
        EXPECT_FALSE(Get<MSComm>(main, "MSComm1").PortOpen());
        EXPECT_FALSE(ProgressShown());
    }

    Screen& main = *FindScreen("Main");
    BoxHand hand{{}, QMessageBox::Retry};
};

}  // namespace

TEST_F(Tare, TurnsTheAttitudeAndBackAndTreatsOneEntryUnlikeTheOthers) {
    constexpr int matrix = 136;  // the tare matrix; 8192 is 1
    Click(main, "mnuTare");
    ASSERT_TRUE(WaitFor([this] { return hand.Count() == 1; }));
    EXPECT_EQ(hand.Texts()[0], tare.succeeded);
    ASSERT_TRUE(WaitFor([this] { return !Running(tare); }));
    ExpectIdle(tare);
    EXPECT_EQ(Heard(), (std::vector<Bytes>{polledMode, tare.request}));
    EXPECT_NE(sensor.Word(matrix), 8192);
    EXPECT_EQ(Disabled(), std::set<std::string>{"mnuSetCalcCycle"});
    EXPECT_TRUE(main.Menu("mnuSetCalcCycle").Visible());

    Click(main, "mnuRemove");
    ASSERT_TRUE(WaitFor([this] { return hand.Count() == 2; }));
    EXPECT_EQ(hand.Texts()[1], removal.succeeded);
    EXPECT_EQ(sensor.Word(matrix), 8192);
    EXPECT_TRUE(Disabled().empty());
    ExpectIdle(removal);
}

TEST_F(Tare, ASecondClickStopsIt) {
    sensor.SetSilent(true);
    for (const Operation* operation : {&tare, &removal}) {
        sensor.ClearRecord();
        Click(main, operation->entry);
        EXPECT_TRUE(Running(*operation));
        EXPECT_TRUE(ProgressShown());
        EXPECT_EQ(ActiveScreenName(), "Main");
        EXPECT_EQ(Property(*FindScreen("Progress"), "fraPB", "title"), operation->caption);
        EXPECT_EQ(Disabled(),
                  (std::set<std::string>{"mnuConnect", "mnuDisplay", "mnuHelp", "mnuEEPROMmap",
                                         "mnuSetWriteRate", "mnuSetMode", "mnuGetTemperature",
                                         "mnuGetVersionSerial", "mnuAnalog", "mnuHardIronCal",
                                         operation->other, "mnuGains", "mnuVertical", "mnuSelfTest",
                                         "mnuSetCalcCycle"}));
        FindScreen("Progress")->close();
        EXPECT_TRUE(ProgressShown()) << "only the entry ends it";
        Click(main, operation->entry);
        EXPECT_EQ(hand.Texts().back(), operation->stopped);
        EXPECT_TRUE(Disabled().empty());
        ExpectIdle(*operation);
        EXPECT_EQ(FindScreen("Progress"), nullptr);
        EXPECT_EQ(Heard(), (std::vector<Bytes>{polledMode, operation->request, polledMode}));
    }
    EXPECT_EQ(hand.Count(), 2U);
}

TEST_F(Tare, OtherRepliesAreDroppedAndTheBarGoesRound) {
    struct Case {
        const char* what;
        Bytes reply;
    };
    for (const auto& [what, reply] : std::vector<Case>{
             {"the other operation's", {0x11, 0x00, 0x00, 0x00, 0x11}},
             {"bad sum", {0x0F, 0x00, 0x01, 0x00, 0x0F}},
             {"a stray byte more", {0x0F, 0x00, 0x01, 0x00, 0x10, 0x00}},
             {"a sum above 65535, right modulo 65536", {0x0F, 0xFF, 0xF2, 0x00, 0x01}}}) {
        sensor.ReplyOnceTo(0x0F, reply);
        Click(main, "mnuTare");
        const auto& bar = Get<QProgressBar>(*FindScreen("Progress"), "PBar");
        EXPECT_EQ(bar.maximum(), 11);
        std::set<int> seen;
        bool wrapped = false;
        QObject::connect(&bar, &QProgressBar::valueChanged, &bar, [&](int value) {
            wrapped = wrapped || (!seen.empty() && value < *seen.rbegin());
            seen.insert(value);
        });
        ASSERT_TRUE(WaitFor([&] { return wrapped; })) << what;
        EXPECT_EQ(seen, (std::set<int>{1, 2, 3, 4, 5, 6, 7, 8, 9})) << what;
        EXPECT_TRUE(Running(tare)) << what;
        Click(main, "mnuTare");
        EXPECT_EQ(hand.Texts().back(), tare.stopped) << what;
    }
}

TEST_F(Tare, AReplyTornAcrossTwoLooksIsNoReply) {
    sensor.CutReplies({3}, std::chrono::milliseconds(40));
    Click(main, "mnuTare");
    LetPass(100);
    EXPECT_TRUE(Running(tare));
    EXPECT_EQ(hand.Count(), 0U);
}

TEST_F(Tare, WithoutAPortStartAndStopLeaveTheMenuAsItWas) {
    AppState.CommPort = 99;
    Click(main, "mnuTare");
    EXPECT_TRUE(Running(tare));
    Click(main, "mnuTare");
    EXPECT_EQ(hand.Texts().back(), tare.stopped);
    EXPECT_TRUE(Disabled().empty());
    ExpectIdle(tare);
}

}  // namespace orbkl4::test
