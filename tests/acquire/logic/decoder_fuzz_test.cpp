#include "acquire/logic/sample_state.h"
#include "frame/logic/app_state.h"
#include "link/logic/frame_check.h"
#include "support/frames.h"
#include "support/logic/decoder_oracle.h"

#include <gtest/gtest.h>

#include <array>
#include <random>

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

TEST(DecoderFuzz, EveryVerdictAndNumberIsThatOfPlainArithmetic) {
    WordSource source;
    AppState = {};
    SampleState = {};
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

/// The verdict on a reply to an EEPROM read, by plain integers.
ReplyFault PlainVerdict(const Bytes& reply) {
    if (reply[0] != 0x28) return ReplyFault::Header;
    if (reply.size() != 7) return ReplyFault::Length;
    const unsigned sum = 0x28U + reply[1] * 256U + reply[2] + reply[3] * 256U + reply[4];
    return (sum & 0xFFFFU) == reply[5] * 256U + reply[6] ? ReplyFault::None : ReplyFault::Checksum;
}

TEST(ReplyFuzz, AnyBytesGetTheVerdictOfPlainIntegers) {
    WordSource source;
    std::array<int, 4> met{};
    for (int round = 0; round < 40000; ++round) {
        Bytes reply(source.Below(8) == 0 ? 1 + source.Below(40) : 7);
        for (auto& byte : reply) byte = static_cast<std::uint8_t>(source.Word());
        if (source.Below(8) != 0) reply[0] = 0x28;
        if (reply.size() == 7 && source.Below(2) == 0) MendChecksum(reply);
        const ReplyFault verdict = PlainVerdict(reply);
        ASSERT_EQ(CheckReply(reply, DeviceCommand::CmdReadEeprom), verdict) << "round " << round;
        ++met.at(static_cast<std::size_t>(verdict));
    }
    for (const int count : met) EXPECT_GT(count, 1000);
}

}  // namespace
}  // namespace orbkl4
