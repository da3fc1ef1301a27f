#include "acquire/logic/packets.h"

#include "frame/logic/app_state.h"
#include "support/frames.h"
#include "support/logic/decoder_oracle.h"

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <vector>

namespace orbkl4 {
namespace {

/// Numbers with a fixed seed, of which every other word stands at a border.
class WordSource {
  public:
    unsigned Below(unsigned limit) { return static_cast<unsigned>(engine_() % limit); }

    unsigned Word() {
        constexpr std::array borders{0U, 1U, 8192U, 32767U, 32768U, 57344U, 65534U, 65535U};
        return Below(2) == 0 ? borders.at(Below(borders.size())) : Below(65536);
    }

  private:
    std::mt19937 engine_{20260101};
};

class Packets : public testing::Test {
  protected:
    Packets() {
        AppState = {};
        SampleState = {};
    }
};

TEST_F(Packets, EveryVerdictAndNumberIsThatOfPlainArithmetic) {
    WordSource source;
    for (int round = 0; round < 40000; ++round) {
        AppState.MagGainScale = source.Word();
        AppState.AccGainScale = source.Word();
        AppState.GyroGainScale = source.Word();
        const DecoderRow& row = DecoderRows()[source.Below(12)];
        std::vector<unsigned> words(row.kinds.size() + 1);
        for (unsigned& word : words) word = source.Word();
        Bytes packet = Frame(row.command, words);
        if (source.Below(8) == 0)
            packet[1 + source.Below(static_cast<unsigned>(packet.size()) - 1)] ^=
                static_cast<std::uint8_t>(1U << source.Below(8));
        ASSERT_EQ(FaultOfDecoder(row, packet), "") << "round " << round;
    }
}

TEST_F(Packets, AWholeFrameWrittenOutByHand) {
    // 5 + 8192 + 57344 + 0 + 4096 + 256 = 69893 = 65536 + 0x1105
    AppState.CommandBytes = {0x05, 0x20, 0x00, 0xE0, 0x00, 0x00, 0x00,
                             0x10, 0x00, 0x01, 0x00, 0x11, 0x05};
    ASSERT_TRUE(DecodeGyroQuaternion());
    EXPECT_EQ(SampleState.StabQuat0, 1);
    EXPECT_EQ(SampleState.StabQuat1, -1);
    EXPECT_EQ(SampleState.StabQuat2, 0);
    EXPECT_EQ(SampleState.StabQuat3, 0.5);
    EXPECT_EQ(SampleState.TicksGyro, 256);
    EXPECT_EQ(SampleState.ChecksumGyro, 0x1105);
    EXPECT_EQ(SampleState.CalcChecksumGyro, 0x1105);
    AppState.CommandBytes.back() = 0x06;
    EXPECT_FALSE(DecodeGyroQuaternion());
    EXPECT_EQ(SampleState.StabQuat1, 57344);  // the raw word
    EXPECT_EQ(SampleState.ChecksumGyro, 0x1106);
    EXPECT_EQ(SampleState.CalcChecksumGyro, 0x1105);
}

TEST_F(Packets, MatrixIsDividedByItsDeterminant) {
    struct Case {
        std::vector<unsigned> wordsAndTicks;
        double determinant;
        SampleStateRecord::Matrix matrix;
    };
    const std::vector<Case> cases = {
        // Columns (2, 1, 0), (1, 1, 1), (0, 1, 3): determinant 2(3 - 1) - 1(3 - 0) + 0 = 1
        {{16384, 8192, 0, 8192, 8192, 8192, 0, 8192, 24576, 77}, 1, {2, 1, 0, 1, 1, 1, 0, 1, 3}},
        // Columns (1, 2, 3), (0, 1, 0.5), (0, 0, -3.5): determinant -3.5
        {{8192, 16384, 24576, 0, 8192, 4096, 0, 0, 36864, 77},
         -3.5,
         {-0.2857, -0.5714, -0.8571, 0, -0.2857, -0.1429, 0, 0, 1}},
    };
    for (const auto& [wordsAndTicks, determinant, matrix] : cases) {
        AppState.CommandBytes = Frame(0x0B, wordsAndTicks);
        ASSERT_TRUE(DecodeGyroMatrix()) << determinant;
        EXPECT_EQ(SampleState.MatrixDeterminant, determinant);
        EXPECT_EQ(SampleState.StabMatrix, matrix) << determinant;
    }
}

TEST_F(Packets, ATornPacketIsBadAndHarmless) {
    const Bytes good = Frame(0x12, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14});
    for (std::size_t length = 0; length < good.size(); ++length) {
        AppState.CommandBytes.assign(good.begin(), good.begin() + static_cast<int>(length));
        EXPECT_FALSE(DecodeInstantQuatVectors()) << length;
    }
}

}  // namespace
}  // namespace orbkl4
