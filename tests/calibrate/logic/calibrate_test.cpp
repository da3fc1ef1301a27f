#include "base/run_time_error.h"
#include "calibrate/logic/hard_iron.h"
#include "calibrate/logic/tare.h"

#include <gtest/gtest.h>

#include <vector>

namespace orbkl4 {
namespace {

TEST(HardIron, ComputeRequestCarriesTypeAndMilligauss) {
    struct Case {
        const char* type;
        double gauss;
        Bytes request;
    };
    for (const auto& [type, gauss, request] :
         std::vector<Case>{{"", 0, {0x42, 0x71, 0x3E, 0, 0x00, 0x00}},
                           {"2-D", 5, {0x42, 0x71, 0x3E, 1, 0x13, 0x88}},
                           {"2-D", -5, {0x42, 0x71, 0x3E, 1, 0xEC, 0x78}},
                           {"2-D", 0.0005, {0x42, 0x71, 0x3E, 1, 0x00, 0x00}},
                           {"2-D", -0.001, {0x42, 0x71, 0x3E, 1, 0xFF, 0xFF}}})
        EXPECT_EQ(HardIronComputeRequest(type, gauss), request) << type << " " << gauss;
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
    struct Case {
        const char* what;
        Bytes reply;
        bool counts;
    };
    for (const auto& [what, reply, counts] : std::vector<Case>{
             {"15 + 258 = 273", {0x0F, 0x01, 0x02, 0x01, 0x11}, true},
             {"sum of 65535", {0x0F, 0xFF, 0xF0, 0xFF, 0xFF}, true},
             {"sum of 65536, right modulo 65536", {0x0F, 0xFF, 0xF1, 0x00, 0x00}, false},
             {"bad sum", {0x0F, 0x01, 0x02, 0x01, 0x12}, false},
             {"stray byte after it", {0x0F, 0x01, 0x02, 0x01, 0x11, 0x00}, false},
             {"torn", {0x0F, 0x01, 0x02}, false},
             {"the other command's", {0x11, 0x01, 0x02, 0x01, 0x13}, false},
             {"nothing", {}, false}})
        EXPECT_EQ(IsTareReply(reply, CmdTare), counts) << what;
    EXPECT_TRUE(IsTareReply({0x11, 0x01, 0x02, 0x01, 0x13}, CmdRemoveTare));
}

}  // namespace
}  // namespace orbkl4
