#include "memory/logic/map_runs.h"

#include "base/run_time_error.h"
#include "memory/logic/analog.h"
#include "memory/logic/fault_texts.h"
#include "memory/logic/gains.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace orbkl4 {
namespace {

using List = std::vector<eeprom::Address>;

TEST(WriteList, EndsInAddressZeroUnlessTheLastWordIsModified) {
    std::array<bool, eepromWordCount> modified{};
    EXPECT_EQ(WriteListOf(modified), (List{0}));
    modified[123] = modified[22] = modified[1] = true;
    EXPECT_EQ(WriteListOf(modified), (List{2, 44, 246, 0}));
    modified[0] = true;
    EXPECT_EQ(WriteListOf(modified), (List{0, 2, 44, 246, 0}));
    modified[127] = true;
    EXPECT_EQ(WriteListOf(modified), (List{0, 2, 44, 246, 254}));
}

TEST(MapFields, SnapToTheirCodes) {
    for (const double code : {129.0, 64.0, 21.0}) EXPECT_EQ(SnappedBaudCode(code), code);
    for (const double other : {0.0, 22.0, 100.0, 65535.0}) EXPECT_EQ(SnappedBaudCode(other), 64);
    for (const double code : {1.0, 4.0, 16.0}) EXPECT_EQ(SnappedPrescaler(code), code);
    for (const double other : {0.0, 2.0, 15.0}) EXPECT_EQ(SnappedPrescaler(other), 1);
    EXPECT_EQ(CommSettingsOfBaudCode(129), "19200,n,8,1");
    EXPECT_EQ(CommSettingsOfBaudCode(64), "38400,n,8,1");
    EXPECT_EQ(CommSettingsOfBaudCode(21), "115200,n,8,1");
    EXPECT_EQ(CommSettingsOfBaudCode(0), "0");
}

TEST(EepromLog, HasARowForEachWord) {
    std::array<double, eepromWordCount> numbers{};
    numbers[0] = 7;
    numbers[33] = -32768;
    numbers[127] = 65535;
    const auto [title, columns, body] = EepromLogLines(numbers);
    EXPECT_EQ(title, "ORB-KL4 EEPROM Log");
    EXPECT_EQ(columns, "Address,Value");
    EXPECT_TRUE(body.starts_with("0,7\r\n2,0\r\n4,0\r\n"));
    EXPECT_NE(body.find("\r\n66,-32768\r\n"), std::string::npos);
    EXPECT_TRUE(body.ends_with("\r\n252,0\r\n254,65535\r\n"));
    EXPECT_EQ(std::count(body.begin(), body.end(), '\n'), 128);
}

TEST(EepromLog, IsNamedByFourteenDigits) {
    std::tm time{};
    time.tm_year = 109;
    time.tm_mon = 0;
    time.tm_mday = 2;
    time.tm_hour = 15;
    time.tm_min = 4;
    time.tm_sec = 5;
    EXPECT_EQ(EepromLogName(time), "EEPROM_log_01022009150405.csv");
}

TEST(Gains, TravelAsThreeUnsignedWords) {
    EXPECT_EQ(WriteGainsRequest({65535, 0, 256}), (Bytes{0x24, 0xFF, 0xFF, 0, 0, 1, 0}));
    EXPECT_THROW(WriteGainsRequest({0, -1, 0}), RuntimeError);
    // 37 + 65535 + 1 + 32768 + 2 = 98343 = 65536 + 0x8027
    const Bytes reply{0x25, 0xFF, 0xFF, 0x00, 0x01, 0x80, 0x00, 0x00, 0x02, 0x80, 0x27};
    EXPECT_EQ(CheckReply(reply, DeviceCommand::CmdReadSystemGains), ReplyFault::None);
    const SystemGains gains = GainsIn(reply);
    EXPECT_EQ(gains.accelerometer, 65535);
    EXPECT_EQ(gains.magnetometer, 1);
    EXPECT_EQ(gains.biasTracking, 32768);
}

TEST(RetryText, NamesTheFault) {
    using enum DeviceCommand;
    const std::string tail = " Click Retry to attempt re-read or Cancel to skip over.";
    EXPECT_EQ(RetryText(CmdReadEeprom, ReplyFault::Header),
              "Read EEPROM Error: header is not 0x28!" + tail);
    EXPECT_EQ(RetryText(CmdReadEeprom, ReplyFault::Length),
              "Read EEPROM Error: packet length is <> 7 bytes!" + tail);
    EXPECT_EQ(RetryText(CmdReadEeprom, ReplyFault::Checksum),
              "Read EEPROM Error: checksum failed!" + tail);
    EXPECT_EQ(RetryText(CmdReadSystemGains, ReplyFault::Length),
              "Packet length is <> 11 bytes!" + tail);
    EXPECT_EQ(RetryText(CmdWriteSystemGains, ReplyFault::Header), "Header is not 0x24!" + tail);
    EXPECT_EQ(RetryText(CmdWriteSystemGains, ReplyFault::None), "");
}

TEST(AnalogFunctions, OpenJustTheFieldsThatTheyUse) {
    const std::vector<List> expected = {{},         {204, 206, 208, 210}, {218, 222}, {218, 222},
                                        {220, 222}, {220, 222},           {212, 222}, {212, 222},
                                        {214, 222}, {214, 222},           {216, 222}, {216, 222}};
    for (std::size_t row = 0; row < analogFunctions.size(); ++row) {
        List adjustable;
        for (const AnalogWord& word : analogWords)
            if (analogFunctions[row].Adjusts(word.address)) adjustable.push_back(word.address);
        if (row == 12)
            EXPECT_EQ(adjustable.size(), 11);
        else
            EXPECT_EQ(adjustable, expected.at(row)) << row;
    }
}

}  // namespace
}  // namespace orbkl4
