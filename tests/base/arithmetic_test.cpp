#include "base/arithmetic.h"

#include "base/bytes.h"
#include "base/error_of.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>

namespace orbkl4 {
namespace {

TEST(Arithmetic, RoundsToTheDecimalsGiven) {
    struct Case {
        double x;
        int decimals;
        double rounded;
    };
    const Case cases[] = {{-2.5, 0, -2},       {0.25, 1, 0.2},     {0.75, 1, 0.8},
                          {323.15, 1, 323.2},  {179.9945, 1, 180}, {0.00005, 4, 0},
                          {1.63854, 4, 1.6385}};
    for (const auto& [x, decimals, rounded] : cases) EXPECT_EQ(RoundTo(x, decimals), rounded) << x;
}

TEST(Arithmetic, RoundsToTheBitAsTheMathLibraryDoes) {
    const auto expectSame = [](double x) {
        const auto bits = [](double number) { return std::bit_cast<std::uint64_t>(number); };
        ASSERT_EQ(bits(NearestInteger(x)), bits(std::nearbyint(x))) << x;
        ASSERT_EQ(bits(NearestInteger(-x)), bits(std::nearbyint(-x))) << -x;
    };
    for (int word = 0; word <= 65535; ++word) {
        for (const double scale : {0.5, 360.0 / 65536 * 10, 10000.0 / 8192, 3277 / 3276.8}) {
            expectSame(word * scale);
        }
    }
    for (const double edge : {0x1p51, 0x1p52, 0x1p53}) {
        for (const double beside : {-1.5, -1.0, -0.5, 0.0, 0.5, 1.0}) expectSame(edge + beside);
    }
    expectSame(std::numeric_limits<double>::max());
    expectSame(std::numeric_limits<double>::infinity());
    EXPECT_TRUE(std::isnan(NearestInteger(std::numeric_limits<double>::quiet_NaN())));
}

TEST(Arithmetic, IntegersRoundHalfToEvenAndOverflow) {
    EXPECT_EQ(ToInt16(32767.4), 32767);
    EXPECT_EQ(ToInt16(-32768.5), -32768);
    EXPECT_EQ(ErrorOf([] { ToInt16(32767.5); }), ErrorNumber::Overflow);
    EXPECT_EQ(ErrorOf([] { ToInt16(-32769); }), ErrorNumber::Overflow);
    EXPECT_EQ(ToInt32(2147483647.4), 2147483647);
    EXPECT_EQ(ErrorOf([] { ToInt32(2147483648.0); }), ErrorNumber::Overflow);
    EXPECT_EQ(ErrorOf([] { ToInt32(std::numeric_limits<double>::quiet_NaN()); }),
              ErrorNumber::Overflow);
}

TEST(Arithmetic, DivisionByZeroIsAnErrorAndNoInfinity) {
    EXPECT_EQ(Divide(1, 4), 0.25);
    EXPECT_EQ(ErrorOf([] { Divide(0, 0); }), ErrorNumber::DivisionByZero);
}

TEST(Bytes, AreReadWithinTheirBounds) {
    const Bytes bytes{0x12, 0x34, 0xFF};
    EXPECT_EQ(WordAt(bytes, 1), 13567);
    EXPECT_EQ(ErrorOf([&] { ByteAt(bytes, 3); }), ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(ErrorOf([&] { WordAt(bytes, 2); }), ErrorNumber::SubscriptOutOfRange);
}

}  // namespace
}  // namespace orbkl4
