#include "base/run_time_error.h"
#include "link/logic/eeprom_address.h"
#include "link/logic/fault_texts.h"
#include "link/logic/frame_check.h"
#include "link/logic/identity.h"
#include "link/logic/requests.h"
#include "link/logic/words.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

namespace orbkl4 {
namespace {

using enum DeviceCommand;

TEST(Words, OutsideTheRangeOverflow) {
    EXPECT_EQ(ValueToMSB(-0.5), 0);  // rounded half to even first
    EXPECT_EQ(ValueToLSB(255.5), 0);
    for (const double number : {-1.0, -255.0, -256.0, 65536.0, 1e10, -1e10})
        EXPECT_THROW(ValueToMSB(number), RuntimeError) << number;
    for (const double number : {-1.0, -255.0, 1e10})
        EXPECT_THROW(ValueToLSB(number), RuntimeError) << number;
    EXPECT_EQ(ValueToLSB(65536), 0);  // only the high byte doesn't fit
    EXPECT_THROW(ReadEepromRequest(256), RuntimeError);
    EXPECT_THROW(WriteEepromRequest(-2, 0), RuntimeError);
}

TEST(Words, AreSignedInTwoBandsOfAddresses) {
    struct Case {
        eeprom::Address address;
        double word, number;
    };
    const Case cases[] = {{64, 65535, 65535},   {66, 65535, -1},     {66, 32767, 32767},
                          {118, 32768, -32768}, {120, 32768, 32768}, {134, 65535, 65535},
                          {136, 65535, -1},     {194, 65535, -1},    {196, 65535, 65535},
                          {254, 65535, 65535}};
    for (const auto& [address, word, number] : cases) {
        EXPECT_EQ(NumberOfWord(address, word), number) << address;
        EXPECT_EQ(WordOfNumber(address, number), word) << address;
    }
}

TEST(FrameCheck, FindsTheFirstFaultInTheOrderHeaderLengthChecksum) {
    const std::vector<std::tuple<const char*, Bytes, ReplyFault>> cases = {
        {"sum of 65536 wraps to 0", {0x28, 0xFF, 0xD8, 0x00, 0x00, 0x00, 0x00}, ReplyFault::None},
        {"sum of 131110 wraps to 38", {0x28, 0xFF, 0xFF, 0xFF, 0xFF, 0x00, 0x26}, ReplyFault::None},
        {"wrong header, short", {0x29, 0x12}, ReplyFault::Header},
        {"short", {0x28, 0, 1, 0, 2}, ReplyFault::Length},
        {"a word more", {0x28, 0, 0, 0, 0, 0, 0x28, 0, 0x28}, ReplyFault::Length},
        // 40 + 4660 + 1 = 4701 = 0x125D
        {"low byte of the sum", {0x28, 0x12, 0x34, 0x00, 0x01, 0x12, 0x5C}, ReplyFault::Checksum},
        {"high byte of the sum", {0x28, 0x12, 0x34, 0x00, 0x01, 0x13, 0x5D}, ReplyFault::Checksum},
    };
    for (const auto& [what, reply, fault] : cases)
        EXPECT_EQ(CheckReply(reply, CmdReadEeprom), fault) << what;
}

TEST(FrameCheck, HasAQuestionForEachFaultOfEachReply) {
    using enum ReplyFault;
    const std::tuple<DeviceCommand, ReplyFault, const char*> cases[] = {
        {CmdReadEeprom, Header, "Read EEPROM Error: header is not 0x28!"},
        {CmdReadEeprom, Length, "Read EEPROM Error: packet length is <> 7 bytes!"},
        {CmdReadEeprom, Checksum, "Read EEPROM Error: checksum failed!"},
        {CmdReadSystemGains, Header, "Header is not 0x25!"},
        {CmdReadSystemGains, Length, "Packet length is <> 11 bytes!"},
        {CmdReadSystemGains, Checksum, "Checksum failed!"},
        {CmdWriteSystemGains, Header, "Header is not 0x24!"},
        {CmdWriteSystemGains, Length, "Packet length is <> 5 bytes!"},
        {CmdWriteSystemGains, Checksum, "Checksum failed!"},
    };
    for (const auto& [command, fault, text] : cases)
        EXPECT_EQ(RetryText(command, fault),
                  std::string(text) + " Click Retry to attempt re-read or Cancel to skip over.");
}

TEST(Identity, FirmwareReplyOfTheSearchIsNotWrapped) {
    EXPECT_TRUE(IsFirmwareReply({0xF0, 0x0C, 0x1D, 0x0D, 0x0D}));   // 240 + 3101 = 3341
    EXPECT_TRUE(IsFirmwareReply({0xF0, 0xFF, 0x0F, 0xFF, 0xFF}));   // 240 + 65295 = 65535
    EXPECT_FALSE(IsFirmwareReply({0xF0, 0xFF, 0x10, 0x00, 0x00}));  // 65536, right modulo 65536
    EXPECT_FALSE(IsFirmwareReply({0xF0, 0x0C, 0x1D, 0x0D, 0x0D, 0x00}));
    EXPECT_FALSE(IsFirmwareReply({0xF0, 0x0C, 0x1D, 0x0D}));
    EXPECT_FALSE(IsFirmwareReply({0xF1, 0x0C, 0x1D, 0x0D, 0x0E}));
    EXPECT_FALSE(IsFirmwareReply({}));
}

TEST(Identity, FirmwareTextGetsItsPointsByItsLength) {
    EXPECT_EQ(FirmwareText(12345), "12.3.45");
    EXPECT_EQ(FirmwareText(310), "3.1.0");
    EXPECT_EQ(FirmwareText(31), "3.1.");
    EXPECT_EQ(FirmwareText(0), "0..");
}

TEST(Identity, NeedsOneOfTwoHeadersAndTheExactLengthAndNoChecksum) {
    Bytes replies(31);
    EXPECT_FALSE(ParseIdentity(replies));
    replies[5] = 0xF1;
    EXPECT_TRUE(ParseIdentity(replies));
    replies[0] = 0xF0;
    EXPECT_TRUE(ParseIdentity(replies));
    replies[5] = 0x00;
    EXPECT_TRUE(ParseIdentity(replies));
    for (const std::size_t length : {30U, 32U}) {
        replies.resize(length);
        EXPECT_FALSE(ParseIdentity(replies)) << length;
    }
}

}  // namespace
}  // namespace orbkl4
