#pragma once

#include "link/logic/eeprom_address.h"
#include "memory/logic/catalogue.h"

#include <array>
#include <ctime>
#include <span>
#include <string>
#include <vector>

namespace orbkl4 {

/// The addresses of a write run: those of the modified words, ascending, and then 0, unless the
/// last word is modified.
std::vector<eeprom::Address> WriteListOf(std::span<const bool, eepromWordCount> modified);

/// The code to show in the baud rate field when it is left at `value`: 64 unless it is 129 or 21.
double SnappedBaudCode(double value);

/// The number to show in the prescaler field when it is left at `value`: 1 unless it is 4 or 16.
double SnappedPrescaler(double value);

/// The line settings to store for a baud rate code, "0" for any other number.
std::string CommSettingsOfBaudCode(double code);

/// The three lines to print into an EEPROM log of `numbers`; the last holds all 128 rows, each with
/// a CR LF, so that the file ends in an empty line.
std::array<std::string, 3> EepromLogLines(std::span<const double, eepromWordCount> numbers);

/// The file name of an EEPROM log made at local time `now`: "EEPROM_log_", month, day, year, hour,
/// minute and second in 14 digits, ".csv".
std::string EepromLogName(const std::tm& now);

}  // namespace orbkl4
