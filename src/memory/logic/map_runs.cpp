#include "memory/logic/map_runs.h"

#include "base/number_text.h"
#include "link/logic/baud_rates.h"

#include <algorithm>

namespace orbkl4 {

namespace {

/// The row of `code` in `baudRates`, null for any other number.
const BaudRate* FindBaudRate(double code) {
    const auto* row = std::ranges::find(baudRates, code, &BaudRate::code);
    return row == baudRates.end() ? nullptr : row;
}

}  // namespace

std::vector<eeprom::Address> WriteListOf(std::span<const bool, eepromWordCount> modified) {
    std::vector<eeprom::Address> list;
    for (const EepromWord& word : eepromCatalogue)
        if (modified[IndexOf(word.address)]) list.push_back(word.address);
    if (!modified[IndexOf(eeprom::last)]) list.push_back(0);
    return list;
}

double SnappedBaudCode(double value) {
    return FindBaudRate(value) != nullptr ? value : defaultBaudRate.code;
}

double SnappedPrescaler(double value) {
    return value == 1 || value == 4 || value == 16 ? value : 1;
}

std::string CommSettingsOfBaudCode(double code) {
    const BaudRate* rate = FindBaudRate(code);
    return rate != nullptr ? LineSettingsAt(rate->text) : "0";
}

std::array<std::string, 3> EepromLogLines(std::span<const double, eepromWordCount> numbers) {
    std::string body;
    for (const EepromWord& word : eepromCatalogue)
        body.append(std::to_string(word.address))
            .append(",")
            .append(TrimmedFileText(numbers[IndexOf(word.address)]))
            .append("\r\n");
    return {"ORB-KL4 EEPROM Log", "Address,Value", body};
}

std::string EepromLogName(const std::tm& now) {
    std::array<char, 32> digits{};
    const std::size_t length = std::strftime(digits.data(), digits.size(), "%m%d%Y%H%M%S", &now);
    return "EEPROM_log_" + std::string(digits.data(), length) + ".csv";
}

}  // namespace orbkl4
