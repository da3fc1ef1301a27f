#include "memory/logic/map_runs.h"

#include <gtest/gtest.h>

namespace orbkl4 {
namespace {

TEST(CommSettings, StandForTheCodesOfTheBaudRate) {
    EXPECT_EQ(CommSettingsOfBaudCode(64), "38400,n,8,1");
    EXPECT_EQ(CommSettingsOfBaudCode(0), "0");
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

}  // namespace
}  // namespace orbkl4
