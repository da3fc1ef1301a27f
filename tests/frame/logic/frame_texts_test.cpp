#include "frame/logic/error_record.h"
#include "frame/logic/program.h"

#include <gtest/gtest.h>

#include <array>

namespace orbkl4 {
namespace {

std::tm At(int hour, int minute, int second) {
    std::tm time{};
    time.tm_year = 124;  // 2024
    time.tm_mon = 1;     // February
    time.tm_mday = 3;
    time.tm_hour = hour;
    time.tm_min = minute;
    time.tm_sec = second;
    return time;
}

constexpr ErrorReport report{8018, "MSComm1_OnComm", "Vectors", "Port closed"};

TEST(ErrorRecord, IsSevenLinesWithTheDayFirst) {
    EXPECT_EQ(ErrorRecordText(report, At(17, 5, 9)),
              "Date: 03/02/2024 05:05:09 pm\r\n"
              "Number: 8018\r\n"
              "Source: MSComm1_OnComm\r\n"
              "Screen: Vectors\r\n"
              "Description: Port closed\r\n"
              "Application: ORB-KL4 Data Acquisition and Display Software\r\n"
              "Version: 2.0.4");
}

TEST(ErrorRecord, ClockHasTwelveHours) {
    struct Case {
        int hour;
        const char* text;
    };
    for (const auto& [hour, text] : std::to_array<Case>({{0, "12:00:59 am"},
                                                         {1, "01:00:59 am"},
                                                         {11, "11:00:59 am"},
                                                         {12, "12:00:59 pm"},
                                                         {13, "01:00:59 pm"},
                                                         {23, "11:00:59 pm"}}))
        EXPECT_EQ(ErrorRecordText(report, At(hour, 0, 59)).substr(0, 28),
                  std::string("Date: 03/02/2024 ") + text);
}

TEST(ErrorRecord, IsExplainedInTheBox) {
    EXPECT_EQ(ErrorBoxText("T1\r\nT2"),
              "The error shown below has occurred!\r\n"
              "The data being generated at this time may have been corrupted.\r\n"
              "Please correct the error or contact Kestrelmoor for customer support.\r\n"
              "\r\n"
              "T1\r\nT2\r\n"
              "\r\n"
              "RETRY will allow application to continue.\r\n"
              "CANCEL will terminate application.\r\n");
}

TEST(Version, HasNoLeadingZeros) {
    EXPECT_EQ(VersionText(), "2.0.4");
    EXPECT_EQ(VersionText({10, 0, 12}), "10.0.12");
}

}  // namespace
}  // namespace orbkl4
