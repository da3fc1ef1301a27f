#include "data_file.h"

#include <algorithm>
#include <stdexcept>
#include <string_view>

namespace orbkl4::test {

namespace {

constexpr std::size_t headLines = 5;
constexpr std::size_t columns = 11;

bool AllDigits(std::string_view text) {
    const auto digit = [](char c) { return c >= '0' && c <= '9'; };
    return std::ranges::all_of(text, digit);
}

/// Digits without needless zeros in front.
bool IsWhole(std::string_view text) {
    return !text.empty() && AllDigits(text) && (text == "0" || text.front() != '0');
}

/// Seconds, to two decimals at most; nothing before the point where it would be 0.
bool IsTime(std::string_view text) {
    const auto point = text.find('.');
    if (point == std::string_view::npos) return IsWhole(text);
    const auto before = text.substr(0, point);
    const auto decimals = text.substr(point + 1);
    return (before.empty() || (IsWhole(before) && before != "0")) && AllDigits(decimals) &&
           (decimals.size() == 1 || decimals.size() == 2) && decimals.back() != '0';
}

/// A word from 0 to 65535 behind one blank.
bool IsWord(const std::string& text) {
    const std::string number = text.substr(0, 1) == " " ? text.substr(1) : "";
    return IsWhole(number) && number.size() <= 5 && std::stoi(number) <= 65535;
}

std::vector<std::string> Split(std::string_view text, std::string_view separator) {
    std::vector<std::string> parts;
    for (auto end = text.find(separator); end != std::string_view::npos;
         end = text.find(separator)) {
        parts.emplace_back(text.substr(0, end));
        text.remove_prefix(end + separator.size());
    }
    parts.emplace_back(text);
    return parts;
}

}  // namespace

SensorBitsFile ReadSensorBits(const std::string& content) {
    std::vector<std::string> lines = Split(content, "\r\n");
    if (!lines.back().empty()) throw std::runtime_error("the last line is cut: " + lines.back());
    lines.pop_back();
    if (lines.size() < headLines) throw std::runtime_error("the head is cut:\n" + content);
    SensorBitsFile file{{lines.begin(), lines.begin() + headLines}, {}};
    for (std::size_t i = headLines; i < lines.size(); ++i) {
        auto row = Split(lines[i], ",");
        const bool whole = row.size() == columns && IsTime(row.front()) &&
                           std::all_of(row.begin() + 1, row.end(), IsWord);
        if (!whole) throw std::runtime_error("not a whole row: " + lines[i]);
        file.rows.push_back(std::move(row));
    }
    return file;
}

}  // namespace orbkl4::test
