#include "settings/logic/tick_interval.h"

#include <gtest/gtest.h>

#include <array>

namespace orbkl4 {

TEST(TickInterval, IsShownWithFourDecimals) {
    struct Case {
        double prescaler, postscaler, compare, ticks;
        const char* text;
    };
    for (const auto& [prescaler, postscaler, compare, ticks, text] : std::to_array<Case>({
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
    EXPECT_EQ(PadToFourDecimals(0.12345), ".12345") << "more decimals stay";
    EXPECT_EQ(PadToFourDecimals(10), "10.0000");
}

}  // namespace orbkl4
