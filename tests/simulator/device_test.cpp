#include "simulator/device.h"

#include "simulator/replies.h"
#include "simulator/requests.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <tuple>

namespace orbkl4sim {
namespace {

using namespace std::chrono_literals;

Device Level() { return {Rest({0, 0, 0}), false, 1}; }

TEST(Device, RepliesWithFactoryDefaults) {
    // The ticks word is 2, the checksum the sum of header and words.
    const std::tuple<const char*, Bytes, Bytes> exchanges[] = {
        {"read", {0x28, 0x00, 44}, {0x28, 0x00, 0x40, 0x00, 0x02, 0x00, 0x6A}},
        {"write",
         {0x29, 0x71, 0x00, 26, 0xFF, 0xFE, 0xAA},
         {0x29, 0xFF, 0xFE, 0x00, 0x02, 0x00, 0x29}},
        {"read back", {0x28, 0x00, 26}, {0x28, 0xFF, 0xFE, 0x00, 0x02, 0x00, 0x28}},
        {"firmware 3101", {0xF0}, {0xF0, 0x0C, 0x1D, 0x0D, 0x0D}},
        {"serial number 1042", {0xF1}, {0xF1, 0x04, 0x12, 0x05, 0x03}},
        {"gains", {0x25}, {0x25, 0x00, 0x78, 0x00, 0x64, 0x00, 0x08, 0x00, 0x02, 0x01, 0x0B}},
        {"new gains", {0x24, 0xFF, 0xFF, 0x00, 0x00, 0x01, 0x00}, {0x24, 0x00, 0x02, 0x00, 0x26}},
        {"first new gain", {0x28, 0x00, 124}, {0x28, 0xFF, 0xFF, 0x00, 0x02, 0x00, 0x29}},
        {"last new gain", {0x28, 0x00, 128}, {0x28, 0x01, 0x00, 0x00, 0x02, 0x01, 0x2A}},
        {"25 degrees", {0x07}, {0x07, 0x26, 0x66, 0x00, 0x02, 0x26, 0x6F}},
        {"tare", {0x0F, 0xC1, 0xC3, 0xC5}, {0x0F, 0x00, 0x00, 0x00, 0x0F}},
        {"tare removed", {0x11, 0xC1, 0xC3, 0xC5}, {0x11, 0x00, 0x00, 0x00, 0x11}},
        {"hard iron begun", {0x40, 0x71, 0x3E}, {0x40, 0x00, 0x02, 0x00, 0x42}},
        {"self test has no reply", {0x27, 0x00}, {}},
    };
    Device device = Level();
    for (const auto& [what, request, reply] : exchanges) {
        EXPECT_EQ(reply, ReplyOf(device, request, 2 * kCycle)) << what;
    }
}

TEST(Device, DataRepliesAtRest) {
    // The ticks word is 1: the sample is taken at the end of the first cycle.
    const std::tuple<Euler, std::uint8_t, Bytes> rows[] = {
        // 32768 plus 12000 per gauss, 6000 per g, 3000 per rad/s: field and iron are 0.24, -0.04,
        // 0.60, the rates are the gyro bias 0.02, -0.015, 0.01.
        {{}, 0x01, {0x01, 0x8B, 0x40, 0x7E, 0x20, 0x9C, 0x20, 0x80, 0x00, 0x80, 0x00, 0x97,
                    0x70, 0x80, 0x3C, 0x7F, 0xD3, 0x80, 0x1E, 0x00, 0x01, 0xBD, 0x1F}},
        // 13107.2 per gauss, 6553.6 per g, 3754.8 per rad/s.
        {{}, 0x02, {0x02, 0x0C, 0x4A, 0xFD, 0xF4, 0x1E, 0xB8, 0x00, 0x00, 0x00, 0x00, 0x19,
                    0x9A, 0x00, 0x4B, 0xFF, 0xC8, 0x00, 0x26, 0x00, 0x01, 0x42, 0xCC}},
        {{}, 0x12, {0x12, 0x20, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x0C, 0x4A,
                    0xFD, 0xF4, 0x1E, 0xB8, 0x00, 0x00, 0x00, 0x00, 0x19, 0x9A, 0x00,
                    0x4B, 0xFF, 0xC8, 0x00, 0x26, 0x00, 0x01, 0x62, 0xDC}},
        // 65536 per circle: 16384, 5461, -16384.
        {{90, 30, -90}, 0x0E, {0x0E, 0x40, 0x00, 0x15, 0x55, 0xC0, 0x00, 0x00, 0x01, 0x15, 0x64}},
        // Heading east: the columns are the body axes in earth coordinates.
        {{0, 0, 90}, 0x0A, {0x0A, 0, 0, 0x20, 0, 0,    0, 0xE0, 0,    0,    0,   0,
                            0,    0, 0, 0,    0, 0x20, 0, 0,    0x01, 0x20, 0x0B}},
        // cos 170 = -0.98481 and sin 170 = 0.17365, with the signs changed so that q0 > 0.
        {{340, 0, 0}, 0x04, {0x04, 0x1F, 0x84, 0xFA, 0x71, 0, 0, 0, 0, 0, 0x01, 0x19, 0xFA}},
    };
    Device device = Level();
    for (const auto& [attitude, command, reply] : rows) {
        device.SetMotion(Rest(attitude));
        EXPECT_EQ(reply, ReplyOf(device, {command})) << int(command);
    }
}

TEST(Device, IgnoresRequestsWithAWrongFixedByte) {
    const Bytes requests[] = {{0x29, 0x72, 0x00, 0x84, 0x00, 0x01, 0xAA},
                              {0x29, 0x71, 0x01, 0x84, 0x00, 0x01, 0xAA},
                              {0x29, 0x71, 0x00, 0x84, 0x00, 0x01, 0xAB},
                              {0x29, 0x71, 0x00, 0x85, 0x00, 0x01, 0xAA},
                              {0x28, 0x01, 0x84},
                              {0x28, 0x00, 0x85},
                              {0x0F, 0xC1, 0xC3, 0xC4},
                              {0x40, 0x71, 0x3F},
                              {0x42, 0x70, 0x3E, 0x00, 0x02, 0x08},
                              {0x30}};
    Device device(Rest({10, 20, 30}), false, 1);
    device.Memory().SetWord(address::kIronOffset, 7);
    const std::uint64_t changes = device.Memory().Changes();
    for (const Bytes& request : requests) {
        EXPECT_EQ(Bytes{}, ReplyOf(device, request)) << int(request[0]);
    }
    EXPECT_EQ(changes, device.Memory().Changes());
}

TEST(Device, AStuckWordConfirmsWritesButStays) {
    const Bytes write{0x29, 0x71, 0x00, 26, 0x12, 0x34, 0xAA};
    const Bytes confirmed{0x29, 0x12, 0x34, 0x00, 0x00, 0x12, 0x5D};
    Device device = Level();
    device.Memory().SetStuck(26, true);
    EXPECT_EQ(confirmed, ReplyOf(device, write));
    EXPECT_EQ(10, device.Memory().Word(26));
    device.Memory().SetStuck(26, false);
    EXPECT_EQ(confirmed, ReplyOf(device, write));
    EXPECT_EQ(0x1234, device.Memory().Word(26));
}

TEST(Device, LoadsBaudRateAndCycleAtPowerUp) {
    Device device = Level();
    Eeprom& memory = device.Memory();
    for (const auto& [address, word] :
         {std::pair(44, 21), {238, 1}, {240, 2}, {242, 50}, {246, 3}}) {
        memory.SetWord(address, static_cast<std::uint16_t>(word));
    }
    EXPECT_EQ(38400, device.Baud());
    EXPECT_EQ(kCycle, device.Cycle());
    EXPECT_EQ(10, device.Ticks(10 * kCycle));
    device.PowerUp(1s);
    EXPECT_EQ(115200, device.Baud());
    EXPECT_EQ(30us, device.Cycle());
    EXPECT_EQ(1, device.Ticks(1s + 59us));
    EXPECT_EQ(0, device.Ticks(1s + 65536 * 30us)) << "the counter has 16 bits";

    memory.SetWord(44, 129);
    memory.SetWord(246, 0);
    device.PowerUp(1s);
    EXPECT_EQ(19200, device.Baud());
    EXPECT_EQ(10us, device.Cycle()) << "a factor of 0 counts as 1";
    memory.SetWord(44, 5);
    device.PowerUp(1s);
    EXPECT_EQ(38400, device.Baud());
}

TEST(Device, ContinuousModeTakesDataCommandsOnly) {
    Device device = Level();
    for (const auto& [word, repeats] :
         {std::pair(0, false), {0x31, true}, {0x41, false}, {0x131, false}}) {
        device.Memory().SetWord(address::kContinuousMode, static_cast<std::uint16_t>(word));
        EXPECT_EQ(repeats, device.ContinuousCommand().has_value()) << word;
    }
}

TEST(Device, SelfTestShiftsTheRawWords) {
    Device device = Level();
    for (const auto& [bits, mags, accs, gyros] : {std::array{1, 0, 0, -6000},
                                                  {2, 0, 4000, 6000},
                                                  {3, 0, 4000, 0},
                                                  {8, 0, 0, 0},
                                                  {12, -5000, 0, 0},
                                                  {6, 5000, 4000, 6000}}) {
        ReplyOf(device, {0x27, static_cast<std::uint8_t>(bits)});
        const Bytes reply = ReplyOf(device, {0x01});
        EXPECT_EQ(0x8B40 + mags, WordAt(reply, 1)) << bits;
        EXPECT_EQ(0x8000 + accs, WordAt(reply, 7)) << bits;
        EXPECT_EQ(0x803C + gyros, WordAt(reply, 13)) << bits;
    }
    device.PowerUp(0s);
    EXPECT_EQ(0x8B40, WordAt(ReplyOf(device, {0x01}), 1)) << "power-up ends the self test";
}

TEST(RequestParser, SkipsOtherBytesAndDropsStalledRequests) {
    RequestParser parser;
    std::vector<Bytes> found;
    const auto feed = [&](const Bytes& bytes, Time time) {
        for (const std::uint8_t byte : bytes) {
            if (auto request = parser.Feed(byte, time)) found.push_back(*request);
        }
    };
    // A request with wrong fixed bytes is consumed whole, so that no byte of it starts another.
    feed({0x00, 0xAA, 0x28, 0x00, 0x01, 0x55, 0x29, 0x00, 0x01, 0x02, 0x03, 0x04, 0x05}, 0ms);
    feed({0x28, 0x00}, 100ms);
    feed({0x02, 0x28}, 200ms);
    feed({0xF0}, 301ms);
    const std::vector<Bytes> expected{
        {0x28, 0x00, 0x01}, {0x29, 0x00, 0x01, 0x02, 0x03, 0x04, 0x05}, {0x28, 0x00, 0x02}, {0xF0}};
    EXPECT_EQ(expected, found);
}

}  // namespace
}  // namespace orbkl4sim
