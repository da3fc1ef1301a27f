#include "base/run_time_error.h"
#include "link/logic/requests.h"
#include "settings/logic/output_modes.h"
#include "settings/logic/temperature.h"
#include "settings/logic/tick_interval.h"
#include "settings/logic/vertical_mode.h"
#include "settings/logic/write_rate.h"

#include <gtest/gtest.h>

#include <array>
#include <map>
#include <string_view>

namespace orbkl4 {
namespace {

TEST(TickInterval, IsShownWithFourDecimals) {
    struct Case {
        double prescaler, postscaler, compare, ticks;
        const char* text;
    };
    for (const auto& [prescaler, postscaler, compare, ticks, text] : std::to_array<Case>({
             {16, 16, 256, 1, "6.5536"},
             {1, 1, 1, 1, ".0001"},
             {1, 1, 2, 5, ".0010"},
             {16, 1, 256, 1, ".4096"},
             {16, 5, 250, 1, "2.0000"},
             {4, 15, 250, 1, "1.5000"},
             {1, 10, 210, 10, "2.1000"},
             {1, 10, 250, 8, "2.0000"},
             {1, 5, 250, 17, "2.1250"},
             {16, 16, 256, 100, "655.3600"},
         }))
        EXPECT_EQ(PadToFourDecimals(TickInterval(prescaler, postscaler, compare, ticks)), text);
}

TEST(TickInterval, MoreThanFourDecimalsStay) {
    EXPECT_EQ(PadToFourDecimals(0.12345), ".12345");
    EXPECT_EQ(PadToFourDecimals(0), "0.0000");
    EXPECT_EQ(PadToFourDecimals(10), "10.0000");
}

TEST(Temperature, HasFiveScales) {
    struct Case {
        double word, celsius, fahrenheit, reaumur, kelvin, rankine;
    };
    for (const auto& [word, celsius, fahrenheit, reaumur, kelvin, rankine] : std::to_array<Case>({
             {0, -50, -58, -40, 223.2, 401.7},        // 223.15 ties to 223.2
             {6554, 0, 32, 0, 273.2, 491.7},          // 273.15 ties to 273.2
             {13107, 50, 122, 40, 323.2, 581.7},      // 49.998; 323.15
             {65535, 450, 842, 360, 723.2, 1301.7},   // 449.992; 723.15
             {10485, 30, 86, 24, 303.2, 545.7},       // 29.994; 303.15
             {9797, 24.7, 76.5, 19.8, 297.8, 536.2},  // 24.744; 76.46, 19.76, 297.85, 536.17
         })) {
        EXPECT_EQ(CelsiusOf(word), celsius);
        EXPECT_EQ(FahrenheitOf(celsius), fahrenheit);
        EXPECT_EQ(ReaumurOf(celsius), reaumur);
        EXPECT_EQ(KelvinOf(celsius), kelvin);
        EXPECT_EQ(RankineOf(fahrenheit), rankine);
    }
}

TEST(WriteRate, CountsTicksOf6Point5536Milliseconds) {
    EXPECT_DOUBLE_EQ(WriteIntervalOf(10), 15.2587890625);
    EXPECT_DOUBLE_EQ(SamplesPerSecondOf(15.2587890625), 10);
    EXPECT_DOUBLE_EQ(WriteIntervalOf(0.01), 15258.7890625);
    EXPECT_NEAR(WriteIntervalOf(157), 0.97189739, 1e-8);
    for (const auto convert : {WriteIntervalOf, SamplesPerSecondOf}) {
        try {
            convert(0);
            ADD_FAILURE();
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number(), ErrorNumber::DivisionByZero);
        }
    }
}

TEST(OutputModes, WriteTheByteOfTheirOption) {
    const std::map<std::string_view, int> expected = {
        {"optRSB", 0x01}, {"optGSV", 0x02}, {"optIV", 0x03},    {"optGSQ", 0x05}, {"optIQ", 0x04},
        {"optGSM", 0x0B}, {"optIM", 0x0A},  {"optGSEA", 0x0E},  {"optIEA", 0x0D}, {"optQIV", 0x0C},
        {"optQCV", 0x12}, {"optAAV", 0x31}, {"optPolled", 0x00}};
    ASSERT_EQ(outputModes.size(), expected.size());
    for (const OutputMode& mode : outputModes)
        EXPECT_EQ(mode.command, expected.at(mode.option)) << mode.option;
    EXPECT_EQ(outputModes[9].name, "Quaternions and Instant Vectors");
    EXPECT_EQ(outputModes[11].name, "Euler Angles, Accels and Vectors");
}

TEST(VerticalMode, IsMadeByTwoWords) {
    EXPECT_EQ(GyroModeOf(0, 0), GyroMode::Vertical);
    EXPECT_EQ(GyroModeOf(1, 100), GyroMode::Normal);
    EXPECT_EQ(GyroModeOf(0, 100), GyroMode::Other);
    EXPECT_EQ(GyroModeOf(1, 0), GyroMode::Other);
    EXPECT_EQ(GyroModeOf(1, 99), GyroMode::Other);
    const auto request = [](const EepromWrite& write) {
        return WriteEepromRequest(write.address, write.word);
    };
    EXPECT_EQ(request(verticalModeWrites[0]), (Bytes{0x29, 0x71, 0x00, 0x78, 0x00, 0x00, 0xAA}));
    EXPECT_EQ(request(verticalModeWrites[1]), (Bytes{0x29, 0x71, 0x00, 0x7E, 0x00, 0x00, 0xAA}));
    EXPECT_EQ(request(normalModeWrites[0]), (Bytes{0x29, 0x71, 0x00, 0x78, 0x00, 0x01, 0xAA}));
    EXPECT_EQ(request(normalModeWrites[1]), (Bytes{0x29, 0x71, 0x00, 0x7E, 0x00, 0x64, 0xAA}));
}

}  // namespace
}  // namespace orbkl4
