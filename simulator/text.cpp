#include "simulator/text.h"

#include <charconv>
#include <cmath>
#include <fstream>
#include <stdexcept>
#include <string>

namespace orbkl4sim {

std::string_view Trimmed(std::string_view text) {
    constexpr std::string_view whiteSpace = " \t\r\n";
    const auto first = text.find_first_not_of(whiteSpace);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(whiteSpace) - first + 1);
}

std::optional<double> ToNumber(std::string_view text) {
    if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
    double number = 0;
    const char* const last = text.data() + text.size();
    const auto [end, error] = std::from_chars(text.data(), last, number);
    if (error != std::errc() || end != last || !std::isfinite(number)) return std::nullopt;
    return number;
}

void ForEachLine(const std::filesystem::path& file,
                 const std::function<void(std::string_view line)>& take) {
    std::ifstream stream(file);
    std::string line;
    for (int number = 1; std::getline(stream, line); ++number) {
        const std::string_view content = Trimmed(std::string_view(line).substr(0, line.find('#')));
        if (content.empty()) continue;
        try {
            take(content);
        } catch (const std::runtime_error& error) {
            throw std::runtime_error(file.string() + ", line " + std::to_string(number) + ": " +
                                     error.what());
        }
    }
    if (!stream.eof()) throw std::runtime_error(file.string() + ": can't be read");
}

}  // namespace orbkl4sim
