#include "memory/eeprom_read_run.h"

#include "frame/logic/app_state.h"
#include "frame/start_up.h"
#include "frame/trap.h"
#include "platform/boxes.h"
#include "platform/mscomm.h"
#include "platform/screen.h"
#include "platform/timer.h"
#include "simulator/simulator.h"
#include "support/box_hand.h"
#include "support/frames.h"
#include "support/hastener.h"
#include "support/surroundings.h"
#include "support/wait.h"

#include <gtest/gtest.h>

#include <utility>

namespace orbkl4::test {

namespace {

constexpr const char* question = " Click Retry to attempt re-read or Cancel to skip over.";

/// A screen that reads the words 64, 70 and 76: two bands and a step of its own.
class ReadRun : public testing::Test {
  protected:
    ReadRun() : sensor({.motion = orbkl4sim::Rest(), .noise = false, .paced = false}) {
        AppState = {};
        TestForFileFolders();
        AppState.CommPort = 1;
        AppState.CommSettings = "38400,n,8,1";
        sensor.Start();
        surroundings.LinkPort(1, QString::fromStdString(sensor.DevicePath().string()));
        sensor.SetWord(64, 40000);
        sensor.SetWord(70, 40000);
        sensor.SetWord(76, 5);
        QObject::connect(&timer, &Timer::Tick, &timer, [this] {
            ++ticks;
            Trap("TimerRead_Timer", [this] { EepromReadTick(run); });
        });
        new Hastener(timer, port);
        run.take = [this] {
            taken.emplace_back(AppState.CurrentEEPROMAddress, AppState.EEPROMValue);
        };
        run.pass = [this] { passed.push_back(AppState.CurrentEEPROMAddress); };
        run.end = [this] { ended = true; };
    }

    void RunToEnd() {
        MousePointer(Pointer::Hourglass);
        StartEepromRead(run);
        ASSERT_TRUE(WaitFor([this] { return ended; }));
        EXPECT_FALSE(timer.Enabled());
        EXPECT_FALSE(port.PortOpen());
        EXPECT_EQ(MousePointer(), Pointer::Default);
    }

    std::vector<int> Asked() const {
        std::vector<int> addresses;
        for (const auto& request : sensor.Requests()) {
            EXPECT_EQ(request.bytes.size(), 3U);
            EXPECT_EQ(request.bytes[0] * 256 + request.bytes[1], 0x2800);
            addresses.push_back(request.bytes[2]);
        }
        return addresses;
    }

    using Words = std::vector<std::pair<int, double>>;

    Surroundings surroundings;
    orbkl4sim::Simulator sensor;
    Screen screen{"Reader", "Reader"};
    MSComm& port = *new MSComm(&screen, "MSComm1");
    Timer& timer = *new Timer(&screen, "TimerRead", 100);
    EepromReadRun run{screen, port, timer, 64, 76, 6, {}, {}, {}};
    Words taken;
    std::vector<int> passed;
    bool ended = false;
    int ticks = 0;
};

}  // namespace

TEST_F(ReadRun, GoesFromTheFirstWordToTheLast) {
    RunToEnd();
    EXPECT_EQ(Asked(), (std::vector<int>{64, 70, 76}));
    EXPECT_EQ(taken, (Words{{64, 40000}, {70, 40000 - 65536}, {76, 5}}));
    EXPECT_EQ(passed, (std::vector<int>{64, 70})) << "nothing comes behind the last";
    EXPECT_EQ(ticks, 3);
}

TEST_F(ReadRun, AsksTheSameWordAgainOnRetryAndSkipsItOnCancel) {
    const Bytes good = Frame(0x28, {1, 2});
    Bytes badSum = good;
    ++badSum.back();
    Bytes tooLong = good;
    tooLong.push_back(0);
    sensor.ReplyOnceTo(0x28, Frame(0x29, {1, 2, 3}));
    sensor.ReplyOnceTo(0x28, Bytes(good.begin(), good.end() - 1));
    sensor.ReplyOnceTo(0x28, tooLong);
    sensor.ReplyOnceTo(0x28, badSum);
    BoxHand hand({QMessageBox::Retry, QMessageBox::Retry, QMessageBox::Cancel, QMessageBox::Retry});
    RunToEnd();
    const std::string start = "Read EEPROM Error: ";
    EXPECT_EQ(hand.Texts(),
              (std::vector<std::string>{start + "header is not 0x28!" + question,
                                        start + "packet length is <> 7 bytes!" + question,
                                        start + "packet length is <> 7 bytes!" + question,
                                        start + "checksum failed!" + question}));
    EXPECT_EQ(Asked(), (std::vector<int>{64, 64, 64, 70, 70, 76}));
    EXPECT_EQ(taken, (Words{{70, 40000 - 65536}, {76, 5}}));
    EXPECT_EQ(passed, (std::vector<int>{64, 70})) << "a skipped word counts as passed";
}

TEST_F(ReadRun, EndsBehindASkippedLastWord) {
    run.first = run.last;
    sensor.ReplyOnceTo(0x28, {0x00});
    BoxHand hand({QMessageBox::Cancel});
    RunToEnd();
    EXPECT_EQ(hand.Count(), 1U);
    EXPECT_EQ(Asked(), std::vector<int>{76});
    EXPECT_TRUE(taken.empty());
    EXPECT_TRUE(passed.empty());
}

TEST_F(ReadRun, ReportsSilenceAndLooksAgainWithoutAsking) {
    sensor.ReplyOnceTo(0x28, {});
    BoxHand hand({}, QMessageBox::Retry);
    int boxes = 0;
    hand.BeforeAnswer([&](QMessageBox& /*box*/) {
        if (++boxes == 1) sensor.SendUnasked(Frame(0x28, {7, 0}));
    });
    RunToEnd();
    ASSERT_EQ(hand.Count(), 1U);
    EXPECT_NE(hand.Texts()[0].find("Number: 9\r\nSource: TimerRead_Timer\r\n"), std::string::npos)
        << hand.Texts()[0];
    EXPECT_EQ(Asked(), (std::vector<int>{64, 70, 76}));
    EXPECT_EQ(taken, (Words{{64, 7}, {70, 40000 - 65536}, {76, 5}}));
}

TEST_F(ReadRun, StallsWhereAWordCanNotBeTaken) {
    run.take = [] { Raise(ErrorNumber::InvalidPropertyValue); };
    BoxHand hand({}, QMessageBox::Retry);
    StartEepromRead(run);
    ASSERT_TRUE(WaitFor([&] { return hand.Count() == 2; }));
    EXPECT_NE(hand.Texts()[0].find("Number: 380\r\n"), std::string::npos) << hand.Texts()[0];
    EXPECT_NE(hand.Texts()[1].find("Number: 9\r\n"), std::string::npos) << hand.Texts()[1];
    EXPECT_EQ(Asked(), std::vector<int>{64});
    EXPECT_TRUE(port.PortOpen());
    timer.Enabled(false);
}

}  // namespace orbkl4::test
