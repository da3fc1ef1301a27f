#include "link/logic/words.h"

#include "base/run_time_error.h"

#include <gtest/gtest.h>

#include <array>

namespace orbkl4 {
namespace {

TEST(Words, TakeTheirSignAt32768) {
    struct Case {
        double word, number;
    };
    for (const auto& [word, number] : std::to_array<Case>(
             {{0, 0}, {1, 1}, {32767, 32767}, {32768, -32768}, {65535, -1}, {70000, 4464}}))
        EXPECT_EQ(ToSigned16(word), number) << word;
    for (const auto& [word, number] : std::to_array<Case>(
             {{0, 0}, {32767, 32767}, {32768, -32768}, {65535, -1}, {-4464, -70000}}))
        EXPECT_EQ(ToUnsigned16(number), word) << number;
}

TEST(Words, SplitAfterRoundingHalfToEven) {
    struct Case {
        double number;
        int high, low;
    };
    for (const auto& [number, high, low] : std::to_array<Case>({{0, 0x00, 0x00},
                                                                {255, 0x00, 0xFF},
                                                                {256, 0x01, 0x00},
                                                                {32768, 0x80, 0x00},
                                                                {65535, 0xFF, 0xFF},
                                                                {255.5, 0x01, 0x00},
                                                                {254.5, 0x00, 0xFE},
                                                                {-0.5, 0x00, 0x00},
                                                                {65535.4, 0xFF, 0xFF}})) {
        EXPECT_EQ(ValueToMSB(number), high) << number;
        EXPECT_EQ(ValueToLSB(number), low) << number;
    }
}

TEST(Words, OutsideTheRangeOverflow) {
    for (const double number : {-1.0, -255.0, -256.0, 65536.0, 1e10, -1e10})
        EXPECT_THROW(ValueToMSB(number), RuntimeError) << number;
    for (const double number : {-1.0, -255.0, 1e10})
        EXPECT_THROW(ValueToLSB(number), RuntimeError) << number;
    EXPECT_EQ(ValueToLSB(65536), 0);  // only the high byte doesn't fit
}

}  // namespace
}  // namespace orbkl4
