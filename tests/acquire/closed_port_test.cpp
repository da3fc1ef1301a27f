#include "acquire/closed_port.h"

#include "base/run_time_error.h"
#include "platform/events/mscomm.h"
#include "support/pty_master.h"
#include "support/temporary_folders.h"
#include "support/wait.h"

#include <gtest/gtest.h>

namespace orbkl4::test {

TEST(ClosedPort, PassesOverTheClosedPortAlone) {
    const TemporaryFolders folders;
    PtyMaster line;
    folders.LinkPort(1, line.Path());
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
