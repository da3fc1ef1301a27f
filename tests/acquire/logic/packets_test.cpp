#include "acquire/logic/decoders.h"
#include "state/app_state.h"
#include "state/sample_state.h"
#include "support/frames.h"

#include <gtest/gtest.h>

namespace orbkl4 {
namespace {

TEST(Packets, AWrongSumLeavesTheWordsAsTheyCame) {
    SampleState = {};
    AppState.CommandBytes = Frame(0x05, {8192, 57344, 0, 1, 9});
    AppState.CommandBytes.back() ^= 1U;
    EXPECT_FALSE(DecodeGyroQuaternion());
    EXPECT_EQ(SampleState.StabQuat0, 8192);
    EXPECT_EQ(SampleState.StabQuat1, 57344);
    EXPECT_EQ(SampleState.TicksGyro, 9);
    EXPECT_EQ(SampleState.CalcChecksumGyro, 15);  // 5 + 8192 + 57344 + 1 + 9 - 65536
    EXPECT_EQ(SampleState.ChecksumGyro, 14);
}

TEST(Packets, ATornPacketIsBadAndHarmless) {
    const Bytes good = Frame(0x12, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14});
    for (std::size_t length = 0; length < good.size(); ++length) {
        AppState.CommandBytes.assign(good.begin(), good.begin() + static_cast<int>(length));
        EXPECT_FALSE(DecodeInstantQuatVectors()) << length;
    }
}

}  // namespace
}  // namespace orbkl4
