#pragma once

#include "link/logic/eeprom_address.h"
#include "memory/logic/catalogue.h"

#include <array>
#include <ctime>
#include <span>
#include <string>
#include <vector>

namespace orbkl4 {

/// The addresses of a write run: those of the modified words, ascending, and then 0, which closes
/// every run but one that ends in the last word.
std::vector<eeprom::Address> WriteListOf(std::span<const bool, eepromWordCount> modified);

/// The baud rate code that a field left at `value` shows: 129, 64 or 21, else 64.
double SnappedBaudCode(double value);

/// The prescaler that a field left at `value` shows: 1, 4 or 16, else 1.
double SnappedPrescaler(double value);

/// The line settings to store for a baud rate code, "0" for none of the three.
std::string CommSettingsOfBaudCode(double code);

/// The three lines to print into an EEPROM log of `numbers`; the last holds all 128 rows, each
/// ended by CR LF, so that the file ends in an empty line.
std::array<std::string, 3> EepromLogLines(std::span<const double, eepromWordCount> numbers);

/// The file name of an EEPROM log made at local time `now`: "EEPROM_log_", month, day, year, hour,
/// minute and second in 14 digits, ".csv".
std::string EepromLogName(const std::tm& now);

}  // namespace orbkl4
