#include "support/screens/stream_rig.h"

#include <gtest/gtest.h>

#include <random>

namespace orbkl4::test {

TEST(StreamFuzz, AnyStreamInAnyCuttingGetsTheVerdictsThatItsBytesDeserve) {
    constexpr int rounds = 108;
    constexpr std::size_t mostBytes = 600;
    std::mt19937 random{20260102};
    StreamRig rig;
    for (int round = 0; round < rounds; ++round) {
        std::vector<std::uint8_t> data(2 + random() % mostBytes);
        for (auto& byte : data) byte = static_cast<std::uint8_t>(random());
        data[0] = static_cast<std::uint8_t>(round * 12 / rounds);  // one channel after the other
        ASSERT_EQ(rig.FaultOf(data), "") << "round " << round;
    }
    for (const int count : rig.Verdicts()) EXPECT_GT(count, 20);
}

}  // namespace orbkl4::test
