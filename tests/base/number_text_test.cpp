#include "base/number_text.h"

#include "base/error_of.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdio>

namespace orbkl4 {
namespace {

TEST(NumberText, HasThreeForms) {
    struct Case {
        double number;
        const char *screen, *file, *trimmed;
    };
    const Case cases[] = {
        {0, "0", " 0", "0"},
        {-0.0, "0", " 0", "0"},
        {2, "2", " 2", "2"},
        {-1, "-1", "-1", "-1"},
        {0.5, "0.5", " .5", ".5"},
        {-0.25, "-0.25", "-.25", "-.25"},
        {0.00001, "1E-05", " 1E-05", "1E-05"},
        {2.5e-300, "2.5E-300", " 2.5E-300", "2.5E-300"},
        {2.0 / 3, "0.666666666666667", " .666666666666667", ".666666666666667"},
        {123456789012345, "123456789012345", " 123456789012345", "123456789012345"},
        {1e15, "1E+15", " 1E+15", "1E+15"},
        {1234567890123456, "1.23456789012346E+15", " 1.23456789012346E+15", "1.23456789012346E+15"},
    };
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
    for (const double wide : {9999999999.9999, 99999999999.9999, 999999999999.9999})
        expectSame(wide);
}

TEST(NumberText, IsReadAsAWhole) {
    EXPECT_EQ(ToNumber(" 38 "), 38);
    EXPECT_EQ(ToNumber("\t-0.5 \t"), -0.5);
    EXPECT_EQ(ToNumber("+.25"), 0.25);
    EXPECT_EQ(ToNumber("1E+02"), 100);
    for (const char* text : {"", "  ", "COM3", "3 4", "3.1.01", "inf", "nan", "--1", "+-1"})
        EXPECT_EQ(ErrorOf([&] { ToNumber(text); }), ErrorNumber::TypeMismatch) << text;
    EXPECT_EQ(ErrorOf([] { ToNumber("1E999"); }), ErrorNumber::Overflow);
}

TEST(NumberText, LeadingNumberStopsAtWhatIsNone) {
    EXPECT_EQ(LeadingNumber("3.1.01"), 3.1);
    EXPECT_EQ(LeadingNumber(" 4x"), 4);
    for (const char* text : {"", "v3", "inf"}) EXPECT_EQ(LeadingNumber(text), 0) << text;
}

}  // namespace
}  // namespace orbkl4
