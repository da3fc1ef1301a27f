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
    SendUnlessClosed(port, DeviceCommand::CmdRawSensorBits);
    port.CommPort(1);
    port.PortOpen(true);
    SendUnlessClosed(port, DeviceCommand::CmdRawSensorBits);
    EXPECT_EQ(line.Take(1), (Bytes{1}));
    line.HangUp();
    EXPECT_TRUE(WaitFor([&] {
        try {
            SendUnlessClosed(port, DeviceCommand::CmdRawSensorBits);
            return false;
        } catch (const RuntimeError& error) {
            return error.Number() == ErrorNumber::DeviceGone;
        }
    }));
}

}  // namespace orbkl4::test
