#include "acquire/logic/packets.h"

#include "frame/logic/app_state.h"
#include "support/frames.h"
#include "support/logic/decoder_oracle.h"

#include <gtest/gtest.h>

#include <vector>

namespace orbkl4 {
namespace {

using State = SampleStateRecord;
using Words = std::vector<unsigned>;

class Packets : public testing::Test {
  protected:
    void SetUp() override {
        AppState = {};
        SampleState = {};
    }
};

TEST_F(Packets, EachWordGoesToItsOwnField) {
    for (const DecoderRow& row : DecoderRows()) {
        Words words;
        for (unsigned i = 1; i <= row.fields.size(); ++i) words.push_back(1000 * i);
        words.push_back(54321);
        AppState.CommandBytes = Frame(row.command, words);
        AppState.CommandBytes.back() ^= 1;  // rejected, so the raw words stay to be seen
        SampleState = {};
        EXPECT_FALSE(row.decode()) << row.name;
        for (std::size_t i = 0; i < row.fields.size(); ++i)
            EXPECT_EQ(*row.fields[i], words[i]) << row.name << " word " << i;
        EXPECT_EQ(row.isGyro ? SampleState.HeaderGyro : SampleState.HeaderInstant, row.command);
        EXPECT_EQ(row.isGyro ? SampleState.TicksGyro : SampleState.TicksInstant, 54321);
        EXPECT_EQ(row.isGyro ? SampleState.HeaderInstant : SampleState.HeaderGyro, 0) << row.name;
        EXPECT_EQ(row.isGyro ? SampleState.TicksInstant : SampleState.TicksGyro, 0) << row.name;
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

TEST_F(Packets, VectorsAreScaledByTheGainOfTheirSensor) {
    struct Case {
        unsigned word;
        double gain;
        double number;
    };
    const std::vector<Case> cases = {
        {0, 3277, 0},
        {1, 1, 0},
        {32767, 0, 0},
        {32767, 1, 0.001},        // 0.00099996948
        {32768, 1, -0.001},       // exactly
        {65535, 1, 0},            // -0.00000003
        {16384, 3277, 1.6385},    // exactly
        {1, 3277, 0.0001},        // 0.000100006
        {32767, 3277, 3.2769},    // 3.27689999389
        {32768, 3277, -3.277},    // exactly
        {65535, 3277, -0.0001},   // -0.000100006
        {32767, 65535, 65.533},   // 65.53300003
        {32768, 65535, -65.535},  // exactly
        {65535, 65535, -0.002},   // -0.00199996948
        {1, 65535, 0.002},
    };
    for (const auto& [word, gain, number] : cases) {
        AppState.MagGainScale = gain;
        AppState.AccGainScale = 1000;
        AppState.GyroGainScale = 2000;
        AppState.CommandBytes = Frame(0x02, {word, 0, 0, 0, 32768, 0, 0, 0, 32768, 0});
        ASSERT_TRUE(DecodeGyroVectors());
        EXPECT_EQ(SampleState.StabMagX, number) << word << " at gain " << gain;
        EXPECT_EQ(SampleState.StabAccY, -1);
        EXPECT_EQ(SampleState.CompAngRateZ, -2);
        AppState.CommandBytes = Frame(0x03, {0, 0, word, 32768, 0, 0, 32768, 0, 0, 0});
        ASSERT_TRUE(DecodeInstantVectors());
        EXPECT_EQ(SampleState.InstMagZ, number) << word << " at gain " << gain;
        EXPECT_EQ(SampleState.InstAccX, -1);
        EXPECT_EQ(SampleState.InstAngRateX, -2);
    }
}

TEST_F(Packets, CombinedPacketsConvertEachFieldByItsKind) {
    AppState.MagGainScale = 1000;
    AppState.AccGainScale = 2000;
    AppState.GyroGainScale = 3000;
    const Words words{8192, 57344, 4096, 0, 16384, 0, 0, 16384, 0, 0, 16384, 0, 0, 7};
    AppState.CommandBytes = Frame(0x0C, words);
    ASSERT_TRUE(DecodeGyroQuatVectors());
    EXPECT_EQ(SampleState.StabQuat2, 0.5);
    EXPECT_EQ(SampleState.InstMagX, 0.5);
    EXPECT_EQ(SampleState.InstAccX, 1);
    EXPECT_EQ(SampleState.CompAngRateX, 1.5);
    SampleState = {};
    AppState.CommandBytes = Frame(0x12, words);
    ASSERT_TRUE(DecodeInstantQuatVectors());
    EXPECT_EQ(SampleState.InstQuat1, -1);
    EXPECT_EQ(SampleState.InstMagX, 0.5);
    EXPECT_EQ(SampleState.InstAccX, 1);
    EXPECT_EQ(SampleState.InstAngRateX, 1.5);
    EXPECT_EQ(SampleState.CompAngRateX, 0);
}

TEST_F(Packets, QuaternionWordsRoundToFourDecimals) {
    struct Case {
        unsigned word;
        double number;
    };
    for (const auto& [word, number] : std::vector<Case>{{0, 0},
                                                        {1, 0.0001},      // 0.00012207
                                                        {8191, 0.9999},   // 0.99987793
                                                        {32767, 3.9999},  // 3.99987793
                                                        {32768, -4},
                                                        {65535, -0.0001}}) {
        AppState.CommandBytes = Frame(0x04, {0, 0, 0, word, 0});
        ASSERT_TRUE(DecodeInstantQuaternion());
        EXPECT_EQ(SampleState.InstQuat3, number) << word;
    }
}

TEST_F(Packets, AnglesAreSignedButTheYawOfTheCombinedPacket) {
    struct Case {
        unsigned word;
        double angle, combinedYaw;
    };
    for (const auto& [word, angle, combinedYaw] : std::vector<Case>{{0, 0, 0},
                                                                    {1, 0, 0},  // 0.0055
                                                                    {10, 0.1, 0.1},
                                                                    {16384, 90, 90},
                                                                    {32767, 180, 180},  // 179.9945
                                                                    {32768, -180, 180},
                                                                    {49152, -90, 270},
                                                                    {65535, 0, 360}}) {
        AppState.CommandBytes = Frame(0x0E, {word, word, word, 9});
        ASSERT_TRUE(DecodeGyroEuler());
        EXPECT_EQ(SampleState.Roll, angle) << word;
        EXPECT_EQ(SampleState.Pitch, angle) << word;
        EXPECT_EQ(SampleState.Yaw, angle) << word;
        AppState.CommandBytes = Frame(0x31, {word, word, word, 0, 0, 0, 0, 0, 0, 9});
        ASSERT_TRUE(DecodeEulerAccelRate());
        EXPECT_EQ(SampleState.Roll, angle) << word;
        EXPECT_EQ(SampleState.Pitch, angle) << word;
        EXPECT_EQ(SampleState.Yaw, combinedYaw) << word;
    }
}

TEST_F(Packets, RawBitsStayUnsigned) {
    AppState.CommandBytes = Frame(0x01, {0, 1, 32767, 32768, 65535, 5, 6, 7, 8, 65535});
    ASSERT_TRUE(DecodeRawBits());
    EXPECT_EQ(SampleState.RawMag3, 32767);
    EXPECT_EQ(SampleState.RawAcc1, 32768);
    EXPECT_EQ(SampleState.RawAcc2, 65535);
    EXPECT_EQ(SampleState.TicksGyro, 65535);
}

TEST_F(Packets, MatrixIsDividedByItsDeterminant) {
    struct Case {
        const char* what;
        Words words;
        double determinant;
        State::Matrix matrix;
    };
    const std::vector<Case> cases = {
        {"identity", {8192, 0, 0, 0, 8192, 0, 0, 0, 8192}, 1, {1, 0, 0, 0, 1, 0, 0, 0, 1}},
        {"twice identity",
         {16384, 0, 0, 0, 16384, 0, 0, 0, 16384},
         8,
         {0.25, 0, 0, 0, 0.25, 0, 0, 0, 0.25}},
        {"minus identity",
         {57344, 0, 0, 0, 57344, 0, 0, 0, 57344},
         -1,
         {1, 0, 0, 0, 1, 0, 0, 0, 1}},
        // Columns (2, 1, 0), (1, 1, 1), (0, 1, 3): determinant 2(3 - 1) - 1(3 - 0) + 0 = 1
        {"each place its own",
         {16384, 8192, 0, 8192, 8192, 8192, 0, 8192, 24576},
         1,
         {2, 1, 0, 1, 1, 1, 0, 1, 3}},
        // Columns (1, 2, 3), (0, 1, 0.5), (0, 0, -3.5): determinant -3.5
        {"rounded",
         {8192, 16384, 24576, 0, 8192, 4096, 0, 0, 36864},
         -3.5,
         {-0.2857, -0.5714, -0.8571, 0, -0.2857, -0.1429, 0, 0, 1}},
    };
    for (const auto& [what, words, determinant, matrix] : cases) {
        Words withTicks = words;
        withTicks.push_back(77);
        AppState.CommandBytes = Frame(0x0B, withTicks);
        ASSERT_TRUE(DecodeGyroMatrix()) << what;
        EXPECT_EQ(SampleState.MatrixDeterminant, determinant) << what;
        EXPECT_EQ(SampleState.StabMatrix, matrix) << what;
        AppState.CommandBytes = Frame(0x0A, withTicks);
        SampleState.MatrixDeterminant = 0;
        ASSERT_TRUE(DecodeInstantMatrix()) << what;
        EXPECT_EQ(SampleState.MatrixDeterminant, determinant) << what;
        EXPECT_EQ(SampleState.InstMatrix, matrix) << what;
    }
}

TEST_F(Packets, MatrixWithoutDeterminantIsBad) {
    AppState.CommandBytes = Frame(0x0B, {0, 0, 0, 0, 0, 0, 0, 0, 0, 5});
    EXPECT_FALSE(DecodeGyroMatrix());
    AppState.CommandBytes = Frame(0x0A, {1, 2, 3, 4, 5, 6, 7, 8, 9, 5});
    EXPECT_FALSE(DecodeInstantMatrix());  // columns in arithmetic progression
    EXPECT_EQ(SampleState.TicksInstant, 5);
}

TEST_F(Packets, TheLargestSumWraps) {
    // 14 words of 65535 and the header 0x0C: 917502 = 14 * 65536 - 2
    AppState.CommandBytes = Bytes(31, 0xFF);
    AppState.CommandBytes[0] = 0x0C;
    AppState.CommandBytes[30] = 0xFE;
    EXPECT_TRUE(DecodeGyroQuatVectors());
    EXPECT_EQ(SampleState.CalcChecksumGyro, 65534);
    AppState.CommandBytes = {0x0D, 0xFF, 0xF3, 0, 0, 0, 0, 0, 0, 0, 0};  // 13 + 65523 = 65536
    EXPECT_TRUE(DecodeInstantEuler());
    EXPECT_EQ(SampleState.CalcChecksumInstant, 0);
}

TEST_F(Packets, EveryFlippedBitIsRejected) {
    const Bytes good = Frame(0x31, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10});
    for (std::size_t bit = 8; bit < good.size() * 8; ++bit) {
        AppState.CommandBytes = good;
        AppState.CommandBytes[bit / 8] ^= static_cast<std::uint8_t>(1U << bit % 8);
        EXPECT_FALSE(DecodeEulerAccelRate()) << "bit " << bit;
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
