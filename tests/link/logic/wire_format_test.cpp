#include "base/run_time_error.h"
#include "link/logic/frame_check.h"
#include "link/logic/identity.h"
#include "link/logic/requests.h"
#include "link/logic/reset_writes.h"

#include <gtest/gtest.h>

#include <set>
#include <vector>

namespace orbkl4 {
namespace {

using enum DeviceCommand;

TEST(Requests, AreTheBytesThatTheSensorDemands) {
    struct Case {
        Bytes request, expected;
    };
    const std::vector<Case> cases = {
        {Request(CmdRawSensorBits), {0x01}},
        {Request(CmdEulerAccelRate), {0x31}},
        {Request(CmdTare), {0x0F, 0xC1, 0xC3, 0xC5}},
        {Request(CmdRemoveTare), {0x11, 0xC1, 0xC3, 0xC5}},
        {Request(CmdSelfTest, {0x06}), {0x27, 0x06}},
        {Request(CmdHardIronInit), {0x40, 0x71, 0x3E}},
        {Request(CmdHardIronCompute, {1, 2, 8}), {0x42, 0x71, 0x3E, 0x01, 0x02, 0x08}},
        {Request(CmdFirmwareVersion), {0xF0}},
        {Request(CmdSerialNumber), {0xF1}},
        {ReadEepromRequest(0), {0x28, 0x00, 0x00}},
        {ReadEepromRequest(254), {0x28, 0x00, 0xFE}},
        {WriteEepromRequest(132, 0), {0x29, 0x71, 0x00, 0x84, 0x00, 0x00, 0xAA}},
        {WriteEepromRequest(254, 65535), {0x29, 0x71, 0x00, 0xFE, 0xFF, 0xFF, 0xAA}},
        {WriteEepromRequest(44, 129), {0x29, 0x71, 0x00, 0x2C, 0x00, 0x81, 0xAA}},
    };
    for (const auto& [request, expected] : cases) EXPECT_EQ(request, expected);
}

TEST(Requests, RefuseWhatDoesNotFit) {
    EXPECT_THROW(Request(CmdSelfTest), RuntimeError);
    EXPECT_THROW(Request(CmdTare, {0xC1}), RuntimeError);
    EXPECT_THROW(ReadEepromRequest(256), RuntimeError);
    EXPECT_THROW(WriteEepromRequest(132, -1), RuntimeError);
    EXPECT_THROW(WriteEepromRequest(-2, 0), RuntimeError);
}

TEST(ResetWrites, AreFiveFixedRequests) {
    const std::vector<Bytes> expected = {{0x29, 0x71, 0x00, 0x84, 0x00, 0x00, 0xAA},
                                         {0x29, 0x71, 0x00, 0xEE, 0x00, 0x10, 0xAA},
                                         {0x29, 0x71, 0x00, 0xF0, 0x00, 0x10, 0xAA},
                                         {0x29, 0x71, 0x00, 0xF2, 0x01, 0x00, 0xAA},
                                         {0x29, 0x71, 0x00, 0xF6, 0x00, 0x01, 0xAA}};
    ASSERT_EQ(resetWrites.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i)
        EXPECT_EQ(WriteEepromRequest(resetWrites[i].address, resetWrites[i].word), expected[i]);
}

TEST(CommandFormats, HaveOneRowForEachCommand) {
    std::set<DeviceCommand> commands;
    for (const auto& format : commandFormats) commands.insert(format.command);
    EXPECT_EQ(commands.size(), 26);
    EXPECT_EQ(commandFormats.size(), 26);
}

TEST(FrameCheck, FindsTheFirstFaultInTheOrderHeaderLengthChecksum) {
    struct Case {
        const char* what;
        Bytes reply;
        ReplyFault fault;
    };
    const std::vector<Case> cases = {
        {"good: 40 + 4660 + 1 = 4701",
         {0x28, 0x12, 0x34, 0x00, 0x01, 0x12, 0x5D},
         ReplyFault::None},
        {"sum of 65536 wraps to 0", {0x28, 0xFF, 0xD8, 0x00, 0x00, 0x00, 0x00}, ReplyFault::None},
        {"sum of 131110 wraps to 38", {0x28, 0xFF, 0xFF, 0xFF, 0xFF, 0x00, 0x26}, ReplyFault::None},
        {"wrong header, short", {0x29, 0x12}, ReplyFault::Header},
        {"header alone", {0x28}, ReplyFault::Length},
        {"a stray byte behind",
         {0x28, 0x12, 0x34, 0x00, 0x01, 0x12, 0x5D, 0x00},
         ReplyFault::Length},
        {"low byte of the sum", {0x28, 0x12, 0x34, 0x00, 0x01, 0x12, 0x5C}, ReplyFault::Checksum},
        {"high byte of the sum", {0x28, 0x12, 0x34, 0x00, 0x01, 0x13, 0x5D}, ReplyFault::Checksum},
    };
    for (const auto& [what, reply, fault] : cases)
        EXPECT_EQ(CheckReply(reply, CmdReadEeprom), fault) << what;
}

TEST(FrameCheck, AnEmptyReplyHasNoByteToTest) {
    for (const auto& test :
         {+[] { CheckReply({}, CmdReadEeprom); }, +[] { HasFrames({}, CmdWriteEeprom, 4); }}) {
        try {
            test();
            ADD_FAILURE();
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number(), ErrorNumber::SubscriptOutOfRange);
        }
    }
}

TEST(FrameCheck, FramesBackToBackNeedEveryHeaderAndTheExactLength) {
    Bytes two = {0x29, 0x00, 0x01, 0x00, 0x02, 0x00, 0x2C, 0x29, 0xFF, 0xD7, 0x00, 0x00, 0, 0};
    EXPECT_TRUE(HasFrames(two, CmdWriteEeprom, 2));
    EXPECT_TRUE(ChecksumHolds(two, 0, 7));
    EXPECT_TRUE(ChecksumHolds(two, 7, 7));  // 41 + 65495 = 65536
    EXPECT_FALSE(UnwrappedChecksumHolds(two, 7, 7));
    EXPECT_EQ(FrameSum(two, 7, 7), 65536);
    two[7] = 0x28;
    EXPECT_FALSE(HasFrames(two, CmdWriteEeprom, 2));
    two[7] = 0x29;
    two.push_back(0);
    EXPECT_FALSE(HasFrames(two, CmdWriteEeprom, 2));
    EXPECT_THROW(ChecksumHolds(two, 9, 7), RuntimeError);
}

TEST(Identity, FirmwareReplyOfTheSearchIsNotWrapped) {
    EXPECT_TRUE(IsFirmwareReply({0xF0, 0x0C, 0x1D, 0x0D, 0x0D}));   // 240 + 3101 = 3341
    EXPECT_TRUE(IsFirmwareReply({0xF0, 0xFF, 0x0F, 0xFF, 0xFF}));   // 240 + 65295 = 65535
    EXPECT_FALSE(IsFirmwareReply({0xF0, 0xFF, 0x10, 0x00, 0x00}));  // 65536, right modulo 65536
    EXPECT_FALSE(IsFirmwareReply({0xF0, 0x0C, 0x1D, 0x0D, 0x0D, 0x00}));
    EXPECT_FALSE(IsFirmwareReply({0xF1, 0x0C, 0x1D, 0x0D, 0x0E}));
    EXPECT_FALSE(IsFirmwareReply({0xF0}));
    EXPECT_FALSE(IsFirmwareReply({}));
}

TEST(Identity, FirmwareTextGetsItsPointsByItsLength) {
    struct Case {
        double number;
        const char* text;
    };
    for (const auto& [number, text] : std::vector<Case>{{3101, "3.1.01"},
                                                        {12345, "12.3.45"},
                                                        {310, "3.1.0"},
                                                        {31, "3.1."},
                                                        {3, "3.."},
                                                        {0, "0.."},
                                                        {65535, "65.5.35"}})
        EXPECT_EQ(FirmwareText(number), text);
}

/// The five replies of firmware 3101, number 4097, scales 3277, 65534 and 65535; checksums are 0.
Bytes FiveReplies() {
    return {0xF0, 0x0C, 0x1D, 0,    0, 0xF1, 0x10, 0x01, 0,    0,    0x28, 0x0C, 0xCD, 0, 1, 0,
            0,    0x28, 0xFF, 0xFE, 0, 2,    0,    0,    0x28, 0xFF, 0xFF, 0,    3,    0, 0};
}

TEST(Identity, IsTakenFromFixedPlacesWithNoChecksum) {
    const auto identity = ParseIdentity(FiveReplies());
    ASSERT_TRUE(identity);
    EXPECT_EQ(identity->firmwareText, "3.1.01");
    EXPECT_EQ(identity->firmwareNumber, 3101);
    EXPECT_EQ(identity->serialNumber, 4097);
    EXPECT_EQ(identity->gyroGainScale, 3277);
    EXPECT_EQ(identity->accGainScale, 65534);
    EXPECT_EQ(identity->magGainScale, 65535);
    EXPECT_EQ(GainScaleWarnings(*identity),
              std::vector<std::string_view>{"Mag Gain Scale has not been initialized! Program "
                                            "performance may be affected."});
}

TEST(Identity, NeedsOneOfTwoHeadersAndTheExactLength) {
    for (const bool firmware : {false, true})
        for (const bool serial : {false, true}) {
            Bytes replies = FiveReplies();
            if (!firmware) replies[0] = 0x29;
            if (!serial) replies[5] = 0x29;
            EXPECT_EQ(ParseIdentity(replies).has_value(), firmware || serial);
        }
    Bytes replies = FiveReplies();
    replies.pop_back();
    EXPECT_FALSE(ParseIdentity(replies));
    replies.insert(replies.end(), {0, 0});
    EXPECT_FALSE(ParseIdentity(replies));
}

TEST(Identity, IsAskedForInFiveRequests) {
    const std::array<Bytes, 5> expected = {
        Bytes{0xF0}, {0xF1}, {0x28, 0x00, 0x82}, {0x28, 0x00, 0xE6}, {0x28, 0x00, 0xE8}};
    EXPECT_EQ(IdentityRequests(), expected);
}

}  // namespace
}  // namespace orbkl4
