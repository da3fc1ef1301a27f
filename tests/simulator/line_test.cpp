#include "simulator/line.h"

#include "simulator/replies.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <chrono>

namespace orbkl4sim {
namespace {

using namespace std::chrono_literals;

const Bytes kWriteSeven{0x29, 0x71, 0x00, 26, 0x00, 0x07, 0xAA};  // to address 26
constexpr Time kByte = 1000000000ns / 3840;                       // at 38400 baud

struct Write {
    Time time;
    Bytes bytes;
};

/// The line of a level sensor, with a clock that jumps from one event to the next.
class LineTest : public testing::Test {
  protected:
    /// All writes due until `end`.
    std::vector<Write> RunUntil(Time end) {
        std::vector<Write> writes;
        while (const auto due = line.NextDue(now)) {
            if (*due > end) break;
            now = std::max(now, *due);
            for (Bytes& bytes : line.TakeDue(now)) writes.push_back({now, std::move(bytes)});
        }
        now = end;
        return writes;
    }

    /// The writes within a second of `request`.
    std::vector<Write> Ask(const Bytes& request) {
        line.Receive(request, now, 38400);
        return RunUntil(now + 1s);
    }

    Bytes AskForBytes(const Bytes& request) {
        Bytes bytes;
        for (const Write& write : Ask(request)) {
            bytes.insert(bytes.end(), write.bytes.begin(), write.bytes.end());
        }
        return bytes;
    }

    Device device{Rest({0, 0, 0}), false, 1};
    Line line{device, true, 1};
    Time now{};
};

TEST_F(LineTest, ADataReplyWaitsForTheCycle) {
    line.Receive({0x0E, 0x0E}, 0ms, 38400);
    const auto writes = RunUntil(1s);
    ASSERT_EQ(2U, writes.size());
    EXPECT_EQ(kCycle + 11 * kByte, writes[0].time);
    EXPECT_EQ(1, WordAt(writes[0].bytes, 7));
    EXPECT_EQ(2 * kCycle + 11 * kByte, writes[1].time);
    EXPECT_EQ(2, WordAt(writes[1].bytes, 7));
}

TEST_F(LineTest, ALateWakeUpDoesNotDelayTheNextReply) {
    line.Receive({0xF0}, 0ms, 38400);
    ASSERT_EQ(6 * kByte, line.NextDue(0ms));
    EXPECT_EQ(1U, line.TakeDue(6 * kByte + 300us).size());
    line.Receive({0xF0}, 6 * kByte + 350us, 38400);  // 50 us of which are the host's
    EXPECT_EQ(12 * kByte + 50us, line.NextDue(6 * kByte + 350us));
    // A host that is late itself gains nothing.
    EXPECT_EQ(1U, line.TakeDue(12 * kByte + 50us).size());
    line.Receive({0xF0}, 5ms, 38400);
    EXPECT_EQ(5ms + 6 * kByte, line.NextDue(5ms));
}

TEST_F(LineTest, ContinuousModeKeepsTheCycle) {
    device.Memory().SetWord(132, 0x0E);
    const auto writes = RunUntil(5 * kCycle);
    ASSERT_EQ(4U, writes.size());
    for (int i = 0; i < 4; ++i) EXPECT_EQ((i + 1) * kCycle + 11 * kByte, writes[i].time);
    // 31 bytes at 19200 baud take 16.1 ms, more than two cycles.
    device.Memory().SetWord(132, 0x0C);
    device.Memory().SetWord(44, 129);
    line.PowerCycle(now);
    const auto slow = RunUntil(now + 10 * kCycle);
    ASSERT_EQ(3U, slow.size());
    for (int i = 0; i < 3; ++i) EXPECT_EQ(1 + 3 * i, WordAt(slow[i].bytes, 27));
}

TEST_F(LineTest, AWriteEndsContinuousMode) {
    device.Memory().SetWord(132, 0x31);
    line.Faults().Rates().drop = 1;
    EXPECT_TRUE(RunUntil(3 * kCycle).empty()) << "dropped packets";
    line.Faults().Rates().drop = 0;
    EXPECT_FALSE(RunUntil(10 * kCycle).empty());
    line.Receive({0x29, 0x71, 0x00, 0x84, 0x00, 0x00, 0xAA}, now, 38400);
    const auto writes = RunUntil(now + 1s);
    ASSERT_FALSE(writes.empty());
    EXPECT_EQ(0x29, writes.back().bytes[0]);
    EXPECT_LE(writes.size(), 2U) << "at most the packet being sent";
}

TEST_F(LineTest, UnpacedTimeAdvancesWithRequests) {
    Line fast(device, false, 1);
    for (int i = 1; i <= 3; ++i) {
        fast.Receive({0x05}, 1s, 38400);
        const auto writes = fast.TakeDue(1s);
        ASSERT_EQ(1U, writes.size());
        EXPECT_EQ(i, WordAt(writes[0], 9));
    }
    device.Memory().SetWord(132, 0x05);
    EXPECT_EQ(1s, fast.NextDue(1s));
    EXPECT_EQ(4, WordAt(fast.TakeDue(1s).at(0), 9));
    EXPECT_EQ(1s + kCycle, fast.NextDue(1s)) << "continuous mode is paced by the cycle";
}

TEST_F(LineTest, InjectsFaults) {
    FaultRates& rates = line.Faults().Rates();
    rates = {.drop = 1};
    EXPECT_EQ(Bytes{}, AskForBytes({0xF0}));

    rates = {.corrupt = 1};
    for (int i = 0; i < 50; ++i) {
        const Bytes reply = AskForBytes({0xF0});
        ASSERT_EQ(5U, reply.size());
        int flipped = 0;
        for (std::size_t at = 0; at < 5; ++at) {
            flipped += std::popcount(static_cast<unsigned>(reply[at] ^ kFirmware[at]));
        }
        EXPECT_EQ(1, flipped);
    }

    rates = {.truncate = 1};
    std::array<int, 6> lengths{};
    for (int i = 0; i < 100; ++i) ++lengths.at(AskForBytes({0xF0}).size());
    EXPECT_EQ(0, lengths[0] + lengths[5]);
    EXPECT_GT(std::min(lengths[1], lengths[4]), 0);

    rates = {.stray = 1};
    for (int i = 0; i < 20; ++i) {
        const auto writes = Ask({0xF0});
        ASSERT_EQ(1U, writes.size()) << "stray bytes and reply in one write";
        const Bytes& bytes = writes[0].bytes;
        EXPECT_TRUE(bytes.size() > 5 && bytes.size() <= 9) << bytes.size();
        EXPECT_EQ(kFirmware, Bytes(bytes.end() - 5, bytes.end()));
    }

    rates = {.dribble = 1, .delay = 1, .delayTime = 70ms};
    const Time due = now + 6 * kByte + 70ms;
    const auto writes = Ask({0xF0});
    ASSERT_EQ(5U, writes.size());
    for (std::size_t i = 0; i < 5; ++i) {
        EXPECT_EQ(Bytes{kFirmware[i]}, writes[i].bytes);
        EXPECT_EQ(due + i * 2ms, writes[i].time);
    }
}

TEST(FaultInjector, KeepsTheRateAndDependsOnTheSeed) {
    const auto dropped = [](std::uint64_t seed) {
        FaultInjector faults(seed);
        faults.Rates().drop = 0.25;
        std::vector<bool> drops(1000);
        std::generate(drops.begin(), drops.end(), [&] { return !faults.Inject(kFirmware); });
        return drops;
    };
    const auto first = dropped(1);  // five standard deviations are 68
    EXPECT_NEAR(250, static_cast<double>(std::ranges::count(first, true)), 68);
    EXPECT_EQ(first, dropped(1));
    EXPECT_NE(first, dropped(2));
}

TEST_F(LineTest, CarriesOutRequestsWhileSilent) {
    line.Receive({0xF0}, now, 0);
    line.SetSilent(true);
    EXPECT_EQ(Bytes{}, AskForBytes(kWriteSeven));
    EXPECT_EQ(7, device.Memory().Word(26));
    line.SetSilent(false);
    EXPECT_EQ(kFirmware, AskForBytes({0xF0}));
}

TEST_F(LineTest, WithoutPowerNothingIsCarriedOutOrSent) {
    line.Script().Filter([this](const Bytes&, const Bytes& reply) {
        line.SetPower(false, now);
        return std::optional(reply);
    });
    EXPECT_EQ(Bytes{}, AskForBytes(kWriteSeven)) << "written, but not confirmed";
    EXPECT_EQ(7, device.Memory().Word(26));
    device.Memory().SetWord(26, 1);
    device.Memory().SetWord(44, 21);
    device.Memory().SetWord(132, 0x0E);
    EXPECT_EQ(Bytes{}, AskForBytes(kWriteSeven));
    EXPECT_EQ(1, device.Memory().Word(26));
    line.SetPower(true, now);
    EXPECT_EQ(115200, device.Baud());
    EXPECT_EQ(0x0E, RunUntil(now + 1s).at(0).bytes.at(0)) << "continuous mode starts again";
}

TEST_F(LineTest, FloodsTheLineAtItsBaudRate) {
    line.SetFlood(true, now);
    std::size_t count = 0;
    for (const Write& write : RunUntil(1s)) count += write.bytes.size();
    EXPECT_NEAR(3840, static_cast<double>(count), 45);  // up to one step may be missing
    line.SetFlood(false, now);
    EXPECT_TRUE(RunUntil(2s).empty());
}

TEST_F(LineTest, APowerCycleDropsWhatIsPending) {
    line.Receive({0xF0, 0x28, 0x00}, now, 0);
    line.PowerCycle(now);
    EXPECT_EQ(Bytes{}, AskForBytes({0x2C}));
    EXPECT_EQ(kFirmware, AskForBytes({0xF0}));
}

}  // namespace
}  // namespace orbkl4sim
