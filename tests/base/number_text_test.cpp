#include "base/number_text.h"

#include "base/run_time_error.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <optional>

namespace orbkl4 {
namespace {

TEST(NumberText, HasThreeForms) {
    struct Case {
        double number;
        const char *screen, *file, *trimmed;
    };
    const auto cases = std::to_array<Case>({
        {0, "0", " 0", "0"},
        {-0.0, "0", " 0", "0"},
        {2, "2", " 2", "2"},
        {1234, "1234", " 1234", "1234"},
        {-1, "-1", "-1", "-1"},
        {0.5, "0.5", " .5", ".5"},
        {-0.25, "-0.25", "-.25", "-.25"},
        {-0.0312, "-0.0312", "-.0312", "-.0312"},
        {179.9, "179.9", " 179.9", "179.9"},
        {-180, "-180", "-180", "-180"},
        {10.01, "10.01", " 10.01", "10.01"},
        {0.0001, "0.0001", " .0001", ".0001"},
        {0.00001, "1E-05", " 1E-05", "1E-05"},
        {-0.00001, "-1E-05", "-1E-05", "-1E-05"},
        {2.5e-300, "2.5E-300", " 2.5E-300", "2.5E-300"},
        {0.1 + 0.2, "0.3", " .3", ".3"},
        {1.0 / 3, "0.333333333333333", " .333333333333333", ".333333333333333"},
        {2.0 / 3, "0.666666666666667", " .666666666666667", ".666666666666667"},
        {15.2587890625, "15.2587890625", " 15.2587890625", "15.2587890625"},
        {123456789012345, "123456789012345", " 123456789012345", "123456789012345"},
        {1e15, "1E+15", " 1E+15", "1E+15"},
        {1234567890123456, "1.23456789012346E+15", " 1.23456789012346E+15", "1.23456789012346E+15"},
        {65535.9999, "65535.9999", " 65535.9999", "65535.9999"},
    });
    for (const auto& [number, screen, file, trimmed] : cases) {
        EXPECT_EQ(ScreenText(number), screen);
        EXPECT_EQ(FileText(number), file);
        EXPECT_EQ(TrimmedFileText(number), trimmed);
    }
}

TEST(NumberText, HasTheDigitsThatPrintingGives) {
    const auto expectSame = [](double number) {
        std::array<char, 40> printed{};
        std::snprintf(printed.data(), printed.size(), "%.15g", number);
        ASSERT_EQ(ScreenText(number), printed.data());
    };
    for (int step = 1; step <= 65535; step += 7) {
        for (const double unit : {1.0, 0.1, 0.0001, 1.0 / 8192, 99999.9999}) {
            const double number = step * unit;
            expectSame(number);
            expectSame(-number);
            expectSame(std::nextafter(number, 0));
        }
    }
    for (const double wide : {9999999999.9999, 99999999999.9999, 999999999999.9999}) {
        expectSame(wide);
    }
}

TEST(NumberText, IsReadAsAWhole) {
    struct Case {
        const char* text;
        std::optional<double> number;
    };
    for (const auto& [text, number] : std::to_array<Case>({{"1", 1},
                                                           {" 38 ", 38},
                                                           {"\t-0.5", -0.5},
                                                           {"+.25", 0.25},
                                                           {"1E+02", 100},
                                                           {"", {}},
                                                           {"  ", {}},
                                                           {"COM3", {}},
                                                           {"3 4", {}},
                                                           {"3.1.01", {}},
                                                           {"inf", {}},
                                                           {"nan", {}},
                                                           {"--1", {}},
                                                           {"+-1", {}}})) {
        if (number)
            EXPECT_EQ(ToNumber(text), *number) << text;
        else
            EXPECT_THROW(ToNumber(text), RuntimeError) << text;
    }
    try {
        ToNumber("1E999");
        ADD_FAILURE();
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::Overflow);
    }
}

TEST(NumberText, LeadingNumberStopsAtWhatIsNone) {
    struct Case {
        const char* text;
        double number;
    };
    for (const auto& [text, number] : std::to_array<Case>({{"3.1.01", 3.1},
                                                           {"3.0.05", 3.0},
                                                           {"12.3.45", 12.3},
                                                           {"", 0},
                                                           {"v3", 0},
                                                           {" 4x", 4},
                                                           {"inf", 0}}))
        EXPECT_EQ(LeadingNumber(text), number) << text;
}

TEST(NumberText, TrimsBothEnds) {
    EXPECT_EQ(Trimmed(" \t2.00 \t"), "2.00");
    EXPECT_EQ(Trimmed("1 2"), "1 2");
    EXPECT_EQ(Trimmed("   "), "");
}

}  // namespace
}  // namespace orbkl4
