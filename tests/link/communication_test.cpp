#include "link/communication.h"

#include "base/error_of.h"
#include "platform/events/mscomm.h"
#include "platform/system/clock.h"
#include "platform/windows/screen.h"
#include "state/app_state.h"
#include "support/box_answerer.h"
#include "support/pty_master.h"
#include "support/temporary_folders.h"
#include "support/wait.h"

#include <gtest/gtest.h>

#include <limits>
#include <utility>
#include <vector>

namespace orbkl4::test {

namespace {

/// The tick counts that the clock will return.
std::vector<std::int32_t> ticksAhead;

/// Waits `milliseconds` by a clock that returns `ticks` in turn; the number of ticks used.
std::size_t TicksTaken(std::vector<std::int32_t> ticks, std::int32_t milliseconds) {
    const std::size_t count = ticks.size();
    ticksAhead = std::move(ticks);
    WaitMilliseconds(milliseconds);
    return count - ticksAhead.size();
}

}  // namespace

TEST(Communication, OpensForWholeReadsAndLeavesAnOpenPortAlone) {
    const TemporaryFolders folders;
    const PtyMaster line;
    folders.LinkPort(1, line.Path());
    AppState = {};
    AppState.CommPort = 1;
    AppState.CommSettings = "38400,n,8,1";
    const Screen screen{"Vectors", "Vectors"};
    MSComm port(nullptr, "MSComm2");
    port.InputLen(3);
    OpenCommPort(port, screen);
    line.Send({1, 2, 3, 4, 5});
    ASSERT_TRUE(WaitFor([&] { return port.InBufferCount() == 5; }));
    Bytes all;
    port.Input(all);
    EXPECT_EQ(all.size(), 5U) << "the whole buffer is read";

    AppState.CommPort = 2;
    AppState.CommSettings = "19200,n,8,1";
    const BoxAnswerer boxes;
    OpenCommPort(port, screen);
    EXPECT_EQ(port.CommPort(), 1);
    EXPECT_EQ(port.Settings(), "38400,n,8,1");
    CloseCommPort(port, screen);
    CloseCommPort(port, screen);
    EXPECT_FALSE(port.PortOpen());
    EXPECT_EQ(boxes.Count(), 0U);
}

TEST(Communication, WaitsByCheckedSigned32BitTicksAndRunsNoEvent) {
    constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min();
    constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max();
    ReplaceTickCount([] {
        const std::int32_t next = ticksAhead.at(0);
        ticksAhead.erase(ticksAhead.begin());
        return next;
    });
    bool ran = false;
    QTimer::singleShot(0, [&] { ran = true; });
    EXPECT_EQ(TicksTaken({500, 599, 600, 600}, 100), 3U);
    EXPECT_EQ(TicksTaken({500, 500, 500}, 0), 2U) << "returns at once";
    EXPECT_EQ(TicksTaken({500, 500, 500}, -1), 2U);
    EXPECT_EQ(TicksTaken({-50, 49, 50}, 100), 3U) << "crosses 0";
    EXPECT_EQ(TicksTaken({most - 200, most - 100, least}, 100), 2U)
        << "ends before the count overflows";
    EXPECT_EQ(ErrorOf([&] {
                  TicksTaken({most - 50, most, least + 10}, 100);
              }),
              ErrorNumber::Overflow)
        << "the count crosses 2^31";
    EXPECT_FALSE(ran);
    EXPECT_TRUE(WaitFor([&] { return ran; }));
    ReplaceTickCount(nullptr);
}

}  // namespace orbkl4::test
