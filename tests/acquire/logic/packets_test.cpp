#include "acquire/logic/packets.h"

#include "state/app_state.h"
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

TEST_F(Packets, ATornPacketIsBadAndHarmless) {
    const Bytes good = Frame(0x12, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14});
    for (std::size_t length = 0; length < good.size(); ++length) {
        AppState.CommandBytes.assign(good.begin(), good.begin() + static_cast<int>(length));
        EXPECT_FALSE(DecodeInstantQuatVectors()) << length;
    }
}

}  // namespace
}  // namespace orbkl4
