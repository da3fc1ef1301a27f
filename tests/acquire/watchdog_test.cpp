#include "acquire/watchdog.h"

#include "acquire/closed_port.h"
#include "acquire/logic/sample_state.h"
#include "base/run_time_error.h"
#include "platform/clock.h"
#include "platform/mscomm.h"
#include "platform/timer.h"
#include "support/pseudo_terminal.h"
#include "support/surroundings.h"
#include "support/wait.h"

#include <QWidget>
#include <gtest/gtest.h>

namespace orbkl4::test {

TEST(Watchdog, RestartsAfterMoreThanOneWholeSecond) {
    struct Case {
        int secondsAgo;
        bool checked;
        int clicks;
    };
    QWidget window;
    QWidget lblWarning(&window);
    for (const auto& [secondsAgo, checked, clicks] :
         {Case{0, true, 0}, Case{1, true, 0}, Case{2, true, 2}, Case{2, false, 1},
          Case{100, true, 2}}) {
        Timer timer(nullptr, "TimerSampling", 1000);
        timer.Enabled(true);
        lblWarning.setVisible(clicks == 0);
        SampleState.LastReplyTime = MonotonicSeconds() - secondsAgo;
        int clicked = 0;
        WatchdogTick(timer, lblWarning, checked, [&] {
            ++clicked;
            EXPECT_FALSE(timer.Enabled());
            EXPECT_FALSE(lblWarning.isHidden());
        });
        EXPECT_EQ(clicked, clicks) << secondsAgo;
        EXPECT_EQ(lblWarning.isHidden(), clicks == 0);
        EXPECT_EQ(timer.Enabled(), clicks == 0);
    }
    NoteReply(lblWarning);
    EXPECT_TRUE(lblWarning.isHidden());
    EXPECT_LE(MonotonicSeconds() - SampleState.LastReplyTime, 1);
}

TEST(ClosedPort, PassesOverTheClosedPortAlone) {
    const Surroundings surroundings;
    PseudoTerminal line;
    surroundings.LinkPort(1, line.Path());
    MSComm port(nullptr, "MSComm1");
    Bytes bytes{1, 2};
    InputUnlessClosed(port, bytes);
    EXPECT_EQ(bytes, (Bytes{1, 2})) << "what was there stays";
    OutputUnlessClosed(port, bytes);
    port.CommPort(1);
    port.PortOpen(true);
    OutputUnlessClosed(port, bytes);
    EXPECT_EQ(line.Take(2), (Bytes{1, 2}));
    line.HangUp();
    EXPECT_TRUE(WaitFor([&] {
        try {
            OutputUnlessClosed(port, bytes);
            return false;
        } catch (const RuntimeError& error) {
            return error.Number() == ErrorNumber::DeviceGone;
        }
    }));
}

}  // namespace orbkl4::test
