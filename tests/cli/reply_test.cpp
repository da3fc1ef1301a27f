#include "cli/reply.h"

#include <gtest/gtest.h>

namespace orbkl4::cli {
namespace {

// 0x28 + 0x1234 + 0x0001 is 0x125D; 0xF0 + 0x0C1D is 0x0D0D.
const Bytes word{0x28, 0x12, 0x34, 0x00, 0x01, 0x12, 0x5D};
const Bytes firmware{0xF0, 0x0C, 0x1D, 0x0D, 0x0D};
/// A sample of 11 bytes, all of a word reply inside: 0x0E + 0x0028 + 0x1234 + 0x0001 + 0x125D.
const Bytes sample{0x0E, 0x00, 0x28, 0x12, 0x34, 0x00, 0x01, 0x12, 0x5D, 0x24, 0xC8};

Bytes Joined(std::initializer_list<Bytes> parts) {
    Bytes all;
    for (const Bytes& part : parts) all.insert(all.end(), part.begin(), part.end());
    return all;
}

TEST(ReplyIn, FindsTheReplyAmongSamplesAndStrayBytes) {
    constexpr auto command = DeviceCommand::CmdReadEeprom;
    const Bytes begun(sample.begin(), sample.begin() + 9);
    const Bytes cut(sample.begin() + 9, sample.end());
    Bytes spoilt = word;
    spoilt[2] ^= 1;
    struct Case {
        Bytes received;
        bool found;  // while more may come
        bool foundAtTheEnd;
    };
    for (const auto& [received, found, foundAtTheEnd] :
         std::vector<Case>{{{}, false, false},
                           {word, true, true},
                           {firmware, false, false},
                           {spoilt, false, false},
                           {Joined({spoilt, word}), false, true},  // its 01 might begin a sample
                           {Joined({{0xFF, 0x00}, word}), true, true},
                           {Joined({cut, sample, word, sample}), true, true},
                           {Joined({cut, firmware, sample}), false, false},
                           {Joined({{0x28}, firmware}), false, false},
                           {Joined({{0x0C}, word}), false, true},  // might be the start of 31 bytes
                           {begun, false, true}}) {  // a sample, as long as its end may come
        EXPECT_EQ(found, ReplyIn(received, command, true) == word) << received.size();
        EXPECT_EQ(foundAtTheEnd, ReplyIn(received, command, false) == word) << received.size();
    }
}

}  // namespace
}  // namespace orbkl4::cli
