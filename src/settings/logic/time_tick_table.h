#pragma once

#include <array>
#include <string>
#include <string_view>

namespace orbkl4 {

/// One row of the table, as text: the interval in milliseconds with two decimals, and the words for
/// the EEPROM addresses 238, 240, 242 and 246.
using TickTableRow = std::array<std::string, 5>;

/// A row for each position of the slider, 2.00 to 25.00 in steps of 0.10.
using TickTableRows = std::array<TickTableRow, 231>;

inline constexpr std::string_view tickTableTitle = "Kestrelmoor ORB-KL4 Time Tick Table 3.1.01";

/// The result of loading the table.
enum class TickTableVerdict { Loaded, NotFound, NotValid, LoadingFailed };

/// Parses the `contents` of the table file, with lines that end in LF or CR LF; `rows` changes only
/// where the result is `Loaded`.
TickTableVerdict ParseTimeTickTable(std::string_view contents, TickTableRows& rows);

/// The message for a verdict; empty for `Loaded`.
std::string_view TickTableMessage(TickTableVerdict verdict);

/// The first row whose interval is exactly the text `key`, nullptr where there is none.
const TickTableRow* FindTickTableRow(const TickTableRows& rows, std::string_view key);

}  // namespace orbkl4
