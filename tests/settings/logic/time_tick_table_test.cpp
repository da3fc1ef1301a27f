#include "settings/logic/time_tick_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <tuple>

namespace orbkl4 {
namespace {

const std::string title = "Kestrelmoor ORB-KL4 Time Tick Table 3.1.01";

std::string Lines(int rows, const std::string& row, const std::string& lineEnd = "\n") {
    std::string text = title + lineEnd;
    for (int i = 0; i < rows; ++i) text += row + lineEnd;
    return text;
}

TickTableVerdict VerdictOn(const std::string& contents) {
    TickTableRows rows;
    return ParseTimeTickTable(contents, rows);
}

TEST(TimeTickTable, IsRefusedByItsFirstLineOrAMissingRow) {
    using enum TickTableVerdict;
    const std::string row = "2.00,16,5,250,1";
    struct Case {
        const char* what;
        std::string contents;
        TickTableVerdict verdict;
    };
    const auto without = [](std::string text, std::size_t count) {
        text.resize(text.size() - count);
        return text;
    };
    std::string shortRow = Lines(231, row);
    shortRow.replace(shortRow.rfind(row), row.size(), "25.00,16,5,250");
    for (const auto& [what, contents, verdict] : std::to_array<Case>({
             {"whole", Lines(231, row), Loaded},
             {"CR LF", Lines(231, row, "\r\n"), Loaded},
             {"more lines", Lines(240, row), Loaded},
             {"no end of the last line", without(Lines(231, row), 1), Loaded},
             {"empty fields", Lines(231, ",,,,"), Loaded},
             {"230 rows", Lines(230, row), LoadingFailed},
             {"231st row empty", Lines(230, row) + "\n", LoadingFailed},
             {"three commas in the last row", shortRow, LoadingFailed},
             {"title alone", title, LoadingFailed},
             {"nothing at all", "", LoadingFailed},
             {"blank behind the title", title + " " + Lines(231, row).substr(title.size()),
              NotValid},
             {"other title", "Time Tick Table 3.1.01\n", NotValid},
             {"empty title", "\n" + Lines(231, row), NotValid},
         }))
        EXPECT_EQ(VerdictOn(contents), verdict) << what;
}

TEST(TimeTickTable, FieldsAreTrimmedAndTheFifthIsTheRest) {
    TickTableRows rows;
    ASSERT_EQ(ParseTimeTickTable(Lines(231, "  2.00 , 16,5 ,\t250 , 1 ,x ", "\r\n"), rows),
              TickTableVerdict::Loaded);
    EXPECT_EQ(rows[230], (TickTableRow{"2.00", "16", "5", "250", "1 ,x"}));
    ASSERT_EQ(ParseTimeTickTable(title, rows), TickTableVerdict::LoadingFailed);
    EXPECT_EQ(rows[0][0], "2.00");
}

TEST(TimeTickTable, IsSearchedByExactTextFromTheFirstRow) {
    TickTableRows rows;
    rows[3] = {"2.30", "1", "2", "3", "4"};
    rows[5] = {"2.30", "9", "9", "9", "9"};
    ASSERT_NE(FindTickTableRow(rows, "2.30"), nullptr);
    EXPECT_EQ((*FindTickTableRow(rows, "2.30"))[1], "1");
    for (const char* key : {"2.3", "2.300", "02.30", "2.31"})
        EXPECT_EQ(FindTickTableRow(rows, key), nullptr) << key;
}

TEST(TimeTickTable, EachVerdictHasItsMessage) {
    EXPECT_EQ(TickTableMessage(TickTableVerdict::NotFound),
              "Time Tick Table not found in Logs directory!");
    EXPECT_EQ(TickTableMessage(TickTableVerdict::NotValid), "Time Tick Table not valid!");
    EXPECT_EQ(TickTableMessage(TickTableVerdict::LoadingFailed), "Time Tick Table loading failed!");
    EXPECT_EQ(TickTableMessage(TickTableVerdict::Loaded), "");
}

/// Ascending in the order of preference: smallest ticks interval, largest pre- and postscaler.
using Preference = std::tuple<int, int, int>;

/// The best words out of all there are, for each product of 20000, 21000 … 250000; the unit is
/// 100 ns.
std::map<int, Preference> BestOfAllWords() {
    std::map<int, Preference> best;
    for (int interval = 1; interval <= 100; ++interval)
        for (const int prescaler : {1, 4, 16})
            for (int postscaler = 1; postscaler <= 16; ++postscaler)
                for (int compare = 1; compare <= 256; ++compare) {
                    const int product = prescaler * postscaler * compare * interval;
                    if (product % 1000 != 0 || product < 20000 || product > 250000) continue;
                    const Preference rank{interval, -prescaler, -postscaler};
                    const auto [entry, isNew] = best.try_emplace(product, rank);
                    if (!isNew) entry->second = std::min(entry->second, rank);
                }
    return best;
}

TEST(TimeTickTable, NoBetterRowExistsThanThoseDelivered) {
    const std::ifstream file(ORBKL4_DATA_DIR "/TimeTickTable.txt", std::ios::binary);
    std::ostringstream contents;
    contents << file.rdbuf();
    TickTableRows rows;
    ASSERT_EQ(ParseTimeTickTable(contents.str(), rows), TickTableVerdict::Loaded);
    const auto best = BestOfAllWords();
    ASSERT_EQ(best.size(), rows.size());  // so every position can be reached exactly
    int key = 200;                        // in steps of 0.01 ms
    for (const TickTableRow& row : rows) {
        const std::string text = std::to_string(key / 100) + "." + std::to_string(key / 10 % 10);
        EXPECT_EQ(row[0], text + "0");
        const int prescaler = std::stoi(row[1]);
        const int postscaler = std::stoi(row[2]);
        const int compare = std::stoi(row[3]);
        const int interval = std::stoi(row[4]);
        EXPECT_TRUE(compare >= 1 && compare <= 256) << row[0];
        EXPECT_EQ(prescaler * postscaler * compare * interval, key * 100) << row[0];
        EXPECT_EQ(best.at(key * 100), Preference(interval, -prescaler, -postscaler)) << row[0];
        key += 10;
    }
}

}  // namespace
}  // namespace orbkl4
