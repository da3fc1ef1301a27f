#include "simulator/device.h"
#include "simulator/replies.h"

#include <gtest/gtest.h>

#include <chrono>

namespace orbkl4sim {
namespace {

using namespace std::chrono_literals;

constexpr double kRadiansPerWord = 8727 / 32768000.0;
const Bytes kTare{0x0F, 0xC1, 0xC3, 0xC5};
const Bytes kInit{0x40, 0x71, 0x3E};
const Bytes kComputeSphere{0x42, 0x71, 0x3E, 0x00, 0x02, 0x08};
const Bytes kComputeCircle{0x42, 0x71, 0x3E, 0x01, 0x02, 0x08};  // 520: 0.52 gauss

/// The three signed words at `offset`, each times `unit`.
Vector3 VectorAt(const Bytes& reply, std::size_t offset, double unit) {
    return {ToSigned(WordAt(reply, offset)) * unit, ToSigned(WordAt(reply, offset + 2)) * unit,
            ToSigned(WordAt(reply, offset + 4)) * unit};
}

void ExpectAngles(const Euler& expected, Device& device) {
    const auto [roll, pitch, yaw] = VectorAt(ReplyOf(device, {0x0E}), 1, 360 / 65536.0);
    EXPECT_NEAR(expected.roll, roll, 0.02);
    EXPECT_NEAR(expected.pitch, pitch, 0.02);
    EXPECT_NEAR(expected.yaw, yaw, 0.02);
}

TEST(Tare, RotatesTheAttitudeUntilRemoved) {
    Device device(Rest({0, 0, 90}), false, 1);
    ReplyOf(device, kTare);
    const int words[] = {0, -8192, 0, 8192, 0, 0, 0, 0, 8192};  // -90 degrees about Z
    for (int i = 0; i < 9; ++i) EXPECT_EQ(words[i], ToSigned(device.Memory().Word(136 + 2 * i)));
    device.SetMotion(Rest({0, 20, 90}));
    ExpectAngles({0, 20, 0}, device);
    device.SetMotion(Rest({20, -30, 100}));
    ReplyOf(device, kTare);
    device.PowerUp(1s);
    ExpectAngles({0, 0, 0}, device);  // the tare is stored in the memory
    ReplyOf(device, {0x11, 0xC1, 0xC3, 0xC5});
    ExpectAngles({20, -30, 100}, device);
}

TEST(GyroBias, CaptureRemovesItUntilPowerOff) {
    Device device(Rest({5, 6, 7}), true, 3);
    const auto rate = [&device](std::uint8_t command) {
        return Length(VectorAt(ReplyOf(device, {command}), 13, kRadiansPerWord));
    };
    EXPECT_NEAR(0.0269, rate(0x02), 0.01);  // the length of 0.02, -0.015, 0.01
    device.Memory().SetWord(address::kCaptureBiasSamples, 0);
    EXPECT_EQ(0s, device.Handle({0x06}, 0s)->ready);
    EXPECT_NEAR(0.0269, rate(0x03), 0.01) << "no samples, no new bias";
    device.Memory().SetWord(address::kCaptureBiasSamples, 40);
    const auto answer = device.Handle({0x06}, 0s);
    EXPECT_EQ(40 * device.Cycle(), answer->ready) << "one sample per cycle";
    EXPECT_EQ((Bytes{0x06, 0x00, 40, 0x00, 46}), answer->reply);
    EXPECT_LT(rate(0x02), 0.01);
    EXPECT_LT(rate(0x03), 0.01);
    device.PowerUp(1s);
    EXPECT_NEAR(0.0269, rate(0x03), 0.01);
}

TEST(HardIron, CollectsTheRangeOfTheField) {
    Device device(Rest({0, 0, 0}), false, 1);
    // Level: 0.24, -0.04, 0.60 gauss times 13107.2, as field, minimum and maximum.
    const Bytes first{0x41, 0x0C, 0x4A, 0xFD, 0xF4, 0x1E, 0xB8, 0x0C, 0x4A, 0xFD, 0xF4, 0x1E,
                      0xB8, 0x0C, 0x4A, 0xFD, 0xF4, 0x1E, 0xB8, 0x00, 0x01, 0x7B, 0x24};
    EXPECT_EQ(first, ReplyOf(device, {0x41}));
    // Upside down: Z is -0.52 + 0.08.
    device.SetMotion(Rest({180, 0, 0}));
    const Bytes second{0x41, 0x0C, 0x4A, 0xFD, 0xF4, 0xE9, 0x79, 0x0C, 0x4A, 0xFD, 0xF4, 0xE9,
                       0x79, 0x0C, 0x4A, 0xFD, 0xF4, 0x1E, 0xB8, 0x00, 0x01, 0x10, 0xA6};
    EXPECT_EQ(second, ReplyOf(device, {0x41}));
    ReplyOf(device, kInit);
    const Bytes restarted = ReplyOf(device, {0x41});
    EXPECT_EQ(0xE979, WordAt(restarted, 17)) << "a new start drops the old maximum";
}

TEST(HardIron, ComputesTheOffsetFromALevelTurnAndTheVerticalField) {
    Device device(Rest({0, 0, 0}), false, 1);
    device.Memory().SetWord(174, 0x0102);
    EXPECT_EQ((Bytes{0x42, 0, 0, 0x01, 0x02, 0, 0, 0, 0, 0x01, 0x44}),
              ReplyOf(device, kComputeSphere))
        << "without samples, the offset stays";
    for (const double yaw : {90.0, 180.0, 270.0, 0.0}) {
        device.SetMotion(Rest({0, 0, yaw}));
        ReplyOf(device, {0x41});
    }
    // X and Y swing by 0.18 around the iron's 0.06 and -0.04; Z stays 0.60, 0.08 above 0.52.
    const Bytes reply{0x42, 0x03, 0x12, 0xFD, 0xF4, 0x04, 0x19, 0x00, 0x00, 0x05, 0x61};
    EXPECT_EQ(reply, ReplyOf(device, kComputeCircle));
    // 3145.73, -524.29, 7864.32 less 786, -524, 1049.
    const Bytes vectors = ReplyOf(device, {0x02});
    EXPECT_EQ(2360, WordAt(vectors, 1));
    EXPECT_EQ(0, WordAt(vectors, 3));
    EXPECT_EQ(6815, WordAt(vectors, 5));
    ReplyOf(device, kInit);
    EXPECT_EQ(3146, WordAt(ReplyOf(device, {0x02}), 1)) << "erasing removes the correction";
}

}  // namespace
}  // namespace orbkl4sim
