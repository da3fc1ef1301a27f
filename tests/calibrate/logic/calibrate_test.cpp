#include "base/run_time_error.h"
#include "calibrate/logic/hard_iron.h"
#include "calibrate/logic/self_test.h"
#include "calibrate/logic/tare.h"
#include "frame/logic/app_state.h"
#include "link/logic/requests.h"
#include "support/frames.h"

#include <gtest/gtest.h>

#include <array>
#include <vector>

namespace orbkl4 {
namespace {

using enum DeviceCommand;

TEST(HardIron, ComputeRequestCarriesTypeAndMilligauss) {
    struct Case {
        const char* type;
        double gauss;
        Bytes request;
    };
    for (const auto& [type, gauss, request] :
         std::vector<Case>{{"2-D", 0.52, {0x42, 0x71, 0x3E, 1, 0x02, 0x08}},
                           {"3-D", -0.52, {0x42, 0x71, 0x3E, 0, 0xFD, 0xF8}},
                           {"", 0, {0x42, 0x71, 0x3E, 0, 0x00, 0x00}},
                           {"2-D", 5, {0x42, 0x71, 0x3E, 1, 0x13, 0x88}},
                           {"2-D", -5, {0x42, 0x71, 0x3E, 1, 0xEC, 0x78}},
                           {"2-D", 0.0005, {0x42, 0x71, 0x3E, 1, 0x00, 0x00}},
                           {"2-D", -0.001, {0x42, 0x71, 0x3E, 1, 0xFF, 0xFF}}})
        EXPECT_EQ(HardIronComputeRequest(type, gauss), request) << type << " " << gauss;
    EXPECT_THROW(HardIronComputeRequest("2-D", 65.536), RuntimeError);
}

TEST(HardIron, CollectReplyIsInGauss) {
    AppState.MagGainScale = 1000;
    AppState.CommandBytes =
        Frame(0x41, {0xFFFF, 16384, 0, 32768, 32768, 65535, 32767, 8192, 1, 4096});
    const auto numbers = DecodeHardIronCollectReply();
    ASSERT_TRUE(numbers);
    EXPECT_EQ(numbers->header, 0x41);
    EXPECT_EQ(numbers->gauss, (std::array<double, 9>{0, 0.5, 0, -1, -1, 0, 1, 0.25, 0}));
    EXPECT_EQ(numbers->ticks, 4096);
    // 65 + 65535 + 16384 + 32768 + 32768 + 65535 + 32767 + 8192 + 1 + 4096 = 258111 = 3 * 65536 +
    // 61503
    EXPECT_EQ(numbers->checksum, 61503);
    AppState.CommandBytes[4] ^= 1;
    EXPECT_FALSE(DecodeHardIronCollectReply());
}

TEST(HardIron, ComputeReplyIsInGauss) {
    AppState.MagGainScale = 65535;
    // 66 + 1 + 65535 + 32768 + 10 = 98380 = 65536 + 0x804C
    AppState.CommandBytes = {0x42, 0, 1, 0xFF, 0xFF, 0x80, 0, 0, 10, 0x80, 0x4C};
    const auto numbers = DecodeHardIronComputeReply();
    ASSERT_TRUE(numbers);
    EXPECT_EQ(numbers->header, 0x42);
    EXPECT_EQ(numbers->gauss, (std::array<double, 3>{0.002, -0.002, -65.535}));
    EXPECT_EQ(numbers->ticks, 10);
    EXPECT_EQ(numbers->checksum, 0x804C);
    AppState.CommandBytes.back() = 0x4D;
    EXPECT_FALSE(DecodeHardIronComputeReply());
}

TEST(HardIron, InitReplySumWraps) {
    AppState.CommandBytes = {0x40, 0xFF, 0xC0, 0x00, 0x00};  // 64 + 65472 = 65536
    EXPECT_TRUE(CheckHardIronInitReply());
    AppState.CommandBytes.back() = 1;
    EXPECT_FALSE(CheckHardIronInitReply());
}

TEST(HardIron, NeedsFirmware3Point1) {
    EXPECT_TRUE(RefusesHardIron("3.0.05"));
    EXPECT_TRUE(RefusesHardIron(""));
    EXPECT_FALSE(RefusesHardIron("3.1.00"));
    EXPECT_FALSE(RefusesHardIron("3.1."));
    EXPECT_FALSE(RefusesHardIron("12.3.45"));
    EXPECT_TRUE(IsBelowHardIronFirmware(0));
    EXPECT_TRUE(IsBelowHardIronFirmware(3099));
    EXPECT_FALSE(IsBelowHardIronFirmware(3100));
}

TEST(Tare, ReplyCountsOnlyAsAWholeAndUnwrapped) {
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
             {"stray byte behind", {0x0F, 0x01, 0x02, 0x01, 0x11, 0x00}, false},
             {"torn", {0x0F, 0x01, 0x02}, false},
             {"the other command's", {0x11, 0x01, 0x02, 0x01, 0x13}, false},
             {"nothing", {}, false}})
        EXPECT_EQ(IsTareReply(reply, CmdTare), counts) << what;
    EXPECT_TRUE(IsTareReply({0x11, 0x01, 0x02, 0x01, 0x13}, CmdRemoveTare));
}

TEST(SelfTest, ByteIsTheSumOfTheTickedBits) {
    for (unsigned byte = 0; byte < 16; ++byte) {
        const std::array<bool, 4> ticked{byte % 2 != 0, byte / 2 % 2 != 0, byte / 4 % 2 != 0,
                                         byte / 8 != 0};
        EXPECT_EQ(SelfTestByte(ticked), byte);
    }
    const std::array<bool, 4> oneAndTwo{false, true, true, false};
    EXPECT_EQ(Request(CmdSelfTest, {SelfTestByte(oneAndTwo)}), (Bytes{0x27, 0x06}));
}

}  // namespace
}  // namespace orbkl4
