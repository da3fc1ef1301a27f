#include "acquire/closed_port.h"

#include "base/error_of.h"
#include "platform/events/mscomm.h"

#include <gtest/gtest.h>

namespace orbkl4::test {

TEST(ClosedPort, IsPassedOverButNoOtherError) {
    MSComm port(nullptr, "MSComm1");
    Bytes bytes{1, 2};
    InputUnlessClosed(port, bytes);
    EXPECT_EQ(bytes, (Bytes{1, 2})) << "what was there stays";
    SendUnlessClosed(port, DeviceCommand::CmdRawSensorBits);
    // A read takes an address.
    EXPECT_EQ(ErrorOf([&] { SendUnlessClosed(port, DeviceCommand::CmdReadEeprom); }),
              ErrorNumber::SubscriptOutOfRange);
}

}  // namespace orbkl4::test
