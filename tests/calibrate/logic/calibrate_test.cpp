#include "base/run_time_error.h"
#include "calibrate/logic/hard_iron.h"
#include "calibrate/logic/tare.h"

#include <gtest/gtest.h>

namespace orbkl4 {
namespace {

TEST(HardIron, ComputeRequestCarriesTypeAndMilligauss) {
    EXPECT_EQ(HardIronComputeRequest("", 0), (Bytes{0x42, 0x71, 0x3E, 0, 0x00, 0x00}));
    EXPECT_EQ(HardIronComputeRequest("2-D", 5), (Bytes{0x42, 0x71, 0x3E, 1, 0x13, 0x88}));
    EXPECT_EQ(HardIronComputeRequest("2-D", 0.0005), (Bytes{0x42, 0x71, 0x3E, 1, 0x00, 0x00}));
    EXPECT_EQ(HardIronComputeRequest("2-D", -0.001), (Bytes{0x42, 0x71, 0x3E, 1, 0xFF, 0xFF}));
    EXPECT_THROW(HardIronComputeRequest("2-D", 65.536), RuntimeError);
}

TEST(HardIron, NeedsFirmware3Point1) {
    EXPECT_TRUE(RefusesHardIron("3.0.05"));
    EXPECT_TRUE(RefusesHardIron(""));
    EXPECT_FALSE(RefusesHardIron("3.1.00"));
    EXPECT_FALSE(RefusesHardIron("3.1."));
    EXPECT_FALSE(RefusesHardIron("12.3.45"));
    EXPECT_TRUE(IsBelowHardIronFirmware(3099));
    EXPECT_FALSE(IsBelowHardIronFirmware(3100));
}

TEST(Tare, ReplyCountsOnlyAsAWholeAndUnwrapped) {
    using enum DeviceCommand;
    EXPECT_TRUE(IsTareReply({0x0F, 0x01, 0x02, 0x01, 0x11}, CmdTare));   // 15 + 258 = 273
    EXPECT_FALSE(IsTareReply({0x0F, 0x01, 0x02, 0x01, 0x12}, CmdTare));  // 274
    EXPECT_TRUE(IsTareReply({0x0F, 0xFF, 0xF0, 0xFF, 0xFF}, CmdTare));   // 15 + 65520 = 65535
    EXPECT_FALSE(IsTareReply({0x0F, 0xFF, 0xF1, 0x00, 0x00}, CmdTare));  // 65536 wraps
    EXPECT_FALSE(IsTareReply({0x0F, 0x01, 0x02, 0x01, 0x11, 0x00}, CmdTare));
    EXPECT_FALSE(IsTareReply({0x0F, 0x01, 0x02}, CmdTare));
    EXPECT_FALSE(IsTareReply({0x11, 0x01, 0x02, 0x01, 0x13}, CmdTare));
    EXPECT_FALSE(IsTareReply({}, CmdTare));
}

}  // namespace
}  // namespace orbkl4
