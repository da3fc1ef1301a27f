#include "settings/logic/time_tick_table.h"

#include "settings/logic/tick_interval.h"

#include <gtest/gtest.h>

#include <array>
#include <fstream>
#include <sstream>
#include <string>

namespace orbkl4 {
namespace {

const std::string title = "Kestrelmoor ORB-KL4 Time Tick Table 3.1.01";

std::string Lines(int rows, const std::string& row, const std::string& lineEnd = "\n") {
    std::string text = title + lineEnd;
    for (int i = 0; i < rows; ++i) text += row + lineEnd;
    return text;
}

TEST(TimeTickTable, IsRefusedByItsFirstLineOrAMissingRow) {
    using enum TickTableVerdict;
    const std::string row = "2.00,16,5,250,1";
    TickTableRows rows;
    struct Case {
        const char* what;
        std::string contents;
        TickTableVerdict verdict;
    };
    for (const auto& [what, contents, verdict] : std::to_array<Case>({
             {"whole", Lines(231, row), Loaded},
             {"more lines", Lines(240, row), Loaded},
             {"no end of the last line", Lines(230, row) + row, Loaded},
             {"empty fields", Lines(231, ",,,,"), Loaded},
             {"230 rows", Lines(230, row), LoadingFailed},
             {"231st row empty", Lines(230, row) + "\n", LoadingFailed},
             {"three commas in the last row", Lines(230, row) + "25.00,16,5,250", LoadingFailed},
             {"nothing at all", "", LoadingFailed},
             {"blank after the title", title + " \n" + row, NotValid},
             {"other title", "Time Tick Table 3.1.01\n", NotValid},
             {"empty title", "\n" + Lines(231, row), NotValid},
         }))
        EXPECT_EQ(ParseTimeTickTable(contents, rows), verdict) << what;
}

TEST(TimeTickTable, FieldsAreTrimmedAndTheFifthIsTheRest) {
    TickTableRows rows;
    ASSERT_EQ(ParseTimeTickTable(Lines(231, "  2.00 , 16,5 ,\t250 , 1 ,x ", "\r\n"), rows),
              TickTableVerdict::Loaded);
    EXPECT_EQ(rows[230], (TickTableRow{"2.00", "16", "5", "250", "1 ,x"}));
    ASSERT_EQ(ParseTimeTickTable(title, rows), TickTableVerdict::LoadingFailed);
    EXPECT_EQ(rows[0][0], "2.00");
}

TEST(TimeTickTable, TheDeliveredRowsMakeEachPositionExactly) {
    const std::ifstream file(ORBKL4_DATA_DIR "/TimeTickTable.txt", std::ios::binary);
    std::ostringstream contents;
    contents << file.rdbuf();
    TickTableRows rows;
    ASSERT_EQ(ParseTimeTickTable(contents.str(), rows), TickTableVerdict::Loaded);
    int key = 200;  // in steps of 0.01 ms
    for (const auto& [text, prescaler, postscaler, compare, interval] : rows) {
        SCOPED_TRACE(text);
        EXPECT_EQ(text, std::to_string(key / 100) + "." + std::to_string(key / 10 % 10) + "0");
        EXPECT_TRUE(prescaler == "1" || prescaler == "4" || prescaler == "16");
        EXPECT_LE(std::stoi(postscaler), 16);
        EXPECT_LE(std::stoi(compare), 256);
        EXPECT_LE(std::stoi(interval), 100);
        EXPECT_EQ(
            std::stoi(prescaler) * std::stoi(postscaler) * std::stoi(compare) * std::stoi(interval),
            key * 100);  // the unit is 100 ns
        key += 10;
    }
}

TEST(TickInterval, IsShownWithFourDecimals) {
    const auto shown = [](double prescaler, double postscaler, double compare, double ticks) {
        return PadToFourDecimals(TickInterval(prescaler, postscaler, compare, ticks));
    };
    EXPECT_EQ(shown(1, 1, 1, 1), ".0001");
    EXPECT_EQ(shown(1, 1, 2, 5), ".0010");
    EXPECT_EQ(shown(16, 1, 256, 1), ".4096");
    EXPECT_EQ(shown(16, 5, 250, 1), "2.0000");
    EXPECT_EQ(shown(1, 10, 210, 10), "2.1000");
    EXPECT_EQ(shown(1, 5, 250, 17), "2.1250");
    EXPECT_EQ(shown(16, 16, 256, 100), "655.3600");
    EXPECT_EQ(PadToFourDecimals(0.12345), ".12345") << "more than four decimals are kept";
}

}  // namespace
}  // namespace orbkl4
