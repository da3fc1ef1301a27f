#include "link/communication.h"

#include "base/run_time_error.h"
#include "frame/logic/app_state.h"
#include "frame/start_up.h"
#include "platform/boxes.h"
#include "platform/clock.h"
#include "platform/mscomm.h"
#include "platform/program_folder.h"
#include "platform/screen.h"
#include "support/box_hand.h"
#include "support/pseudo_terminal.h"
#include "support/surroundings.h"
#include "support/wait.h"

#include <QElapsedTimer>
#include <gtest/gtest.h>

#include <limits>
#include <termios.h>
#include <utility>
#include <vector>

namespace orbkl4::test {

namespace {

class Communication : public testing::Test {
  protected:
    Communication() {
        AppState = {};
        TestForFileFolders();
        surroundings.LinkPort(1, line.Path());
        AppState.CommPort = 1;
        AppState.CommSettings = "38400,n,8,1";
    }
    ~Communication() override { AppState = {}; }

    static QByteArray ErrorLog() { return ContentOf(LogsFolder() + QStringLiteral("/error.log")); }

    Surroundings surroundings;
    PseudoTerminal line;
    Screen screen{"Vectors", "Vectors"};
    MSComm port{&screen, "MSComm2"};
};

/// Tick counts told one after the other; the last one stays.
std::vector<std::int32_t> tickCounts;
std::size_t ticksTold = 0;

std::int32_t NextTickCount() {
    const std::size_t next = std::min(ticksTold, tickCounts.size() - 1);
    ++ticksTold;
    return tickCounts[next];
}

/// Waits `milliseconds` by a clock that tells `counts`; the number of counts that it took, or,
/// below 0, the number of the error.
int WaitBy(std::vector<std::int32_t> counts, std::int32_t milliseconds) {
    tickCounts = std::move(counts);
    ticksTold = 0;
    ReplaceTickCount(NextTickCount);
    int result = 0;
    try {
        WaitMilliseconds(milliseconds);
        result = static_cast<int>(ticksTold);
    } catch (const RuntimeError& error) {
        result = -static_cast<int>(error.Number());
    }
    ReplaceTickCount(nullptr);
    return result;
}

}  // namespace

TEST_F(Communication, OpensAtTheStatesPortAndSettingsAndKeepsThoseOfAnOpenPort) {
    port.InputLen(3);
    port.RThreshold(23);
    OpenCommPort(port, screen);
    EXPECT_TRUE(port.PortOpen());
    EXPECT_EQ(line.Speed(), B38400);
    EXPECT_EQ(port.RThreshold(), 23);
    line.Send({1, 2, 3, 4, 5});
    ASSERT_TRUE(WaitFor([&] { return port.InBufferCount() == 5; }));
    Bytes all;
    port.Input(all);
    EXPECT_EQ(all.size(), 5U) << "no length holds `Input` back";

    AppState.CommPort = 2;
    AppState.CommSettings = "19200,n,8,1";
    BoxHand hand;
    OpenCommPort(port, screen);
    EXPECT_EQ(port.CommPort(), 1);
    EXPECT_EQ(port.Settings(), "38400,n,8,1");
    CloseCommPort(port, screen);
    CloseCommPort(port, screen);
    EXPECT_FALSE(port.PortOpen());
    EXPECT_EQ(hand.Count(), 0U);
}

TEST_F(Communication, ReportsAFailedOpenUnderItsOwnNameAndReturns) {
    struct Case {
        std::int16_t port;
        const char* settings;
        const char* number;
        const char* description;
    };
    MSComm rival(nullptr, "MSComm1");
    rival.PortOpen(true);
    for (const Case& row : {Case{99, "38400,n,8,1", "Number: 8002", "at port 99"},
                            Case{1, "38400,n,8,1", "Number: 8005", "Port in use: port 1"},
                            Case{1, "", "Number: 380", "Invalid line settings"}}) {
        AppState.CommPort = row.port;
        AppState.CommSettings = row.settings;
        BoxHand hand({QMessageBox::Retry});
        OpenCommPort(port, screen);
        EXPECT_FALSE(port.PortOpen());
        ASSERT_EQ(hand.Count(), 1U) << row.number;
        const std::string expected =
            std::string(row.number) + "\r\nSource: OpenCommPort\r\nScreen: Vectors\r\n";
        EXPECT_NE(hand.Texts()[0].find(expected), std::string::npos) << hand.Texts()[0];
        EXPECT_NE(hand.Texts()[0].find(row.description), std::string::npos) << hand.Texts()[0];
        EXPECT_TRUE(ErrorLog().contains(expected.c_str()));
    }
}

TEST_F(Communication, WaitsForTheTickCountAndRunsNoEvent) {
    bool ran = false;
    QTimer::singleShot(0, &screen, [&] { ran = true; });
    QElapsedTimer passed;
    passed.start();
    WaitMilliseconds(100);
    EXPECT_GE(passed.nsecsElapsed(), 99'000'000);
    EXPECT_LT(passed.elapsed(), 1000);
    EXPECT_FALSE(ran);
    EXPECT_TRUE(WaitFor([&] { return ran; }));
}

TEST_F(Communication, CountsTicksInCheckedSigned32Bits) {
    constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min();
    constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max();
    EXPECT_EQ(WaitBy({500, 599, 600}, 100), 3);
    EXPECT_EQ(WaitBy({500, 500}, 0), 2) << "returns at once";
    EXPECT_EQ(WaitBy({500, 500}, -1), 2);
    EXPECT_EQ(WaitBy({-50, 49, 50}, 100), 3) << "0 is crossed like any other count";
    EXPECT_EQ(WaitBy({most - 50, most, least + 10}, 100), -6) << "the count crosses 2^31";
    EXPECT_EQ(WaitBy({most - 200, most - 100, least}, 100), 2) << "over before it crosses";
}

}  // namespace orbkl4::test
