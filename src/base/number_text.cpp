#include "base/number_text.h"

#include "base/arithmetic.h"
#include "base/run_time_error.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <system_error>

namespace orbkl4 {

namespace {

constexpr int significantDigits = 15;
constexpr int fewDecimals = 4;  // what numbers of samples are rounded to
constexpr double fewDecimalsScale = 10000;

using TextBuffer = std::array<char, 32>;

/// Writes `number` as whole number and decimals; null where more than four would be needed, or more
/// than 15 digits altogether. As doubles tell all decimals of 15 digits apart, these are the digits
/// that the general conversion gives, found in a fraction of its time.
char* WriteFewDecimals(TextBuffer& buffer, double number) {
    constexpr double digitsEnd = 1e15;
    const double scaled = NearestInteger(number * fewDecimalsScale);
    if (!(std::abs(scaled) < digitsEnd) || scaled / fewDecimalsScale != number) return nullptr;
    const auto size = static_cast<std::int64_t>(std::abs(scaled));
    constexpr auto parts = static_cast<std::int64_t>(fewDecimalsScale);
    char* end = buffer.data();
    if (number < 0) *end++ = '-';
    end = std::to_chars(end, buffer.data() + buffer.size(), size / parts).ptr;
    auto fraction = static_cast<int>(size % parts);
    if (fraction == 0) return end;
    *end++ = '.';
    for (int i = fewDecimals; i-- > 0; fraction /= 10) {
        end[i] = static_cast<char>('0' + fraction % 10);
    }
    end += fewDecimals;
    while (end[-1] == '0') --end;
    return end;
}

}  // namespace

std::string ScreenText(double number) {
    if (number == 0) return "0";  // also for a negative zero, which rounding leaves behind
    TextBuffer buffer;
    if (char* const end = WriteFewDecimals(buffer, number)) return {buffer.data(), end};
    char* const end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number,
                                    std::chars_format::general, significantDigits)
                          .ptr;
    std::string text(buffer.data(), end);
    if (const auto exponent = text.find('e'); exponent != std::string::npos) text[exponent] = 'E';
    return text;
}

std::string FileText(double number) {
    std::string text = TrimmedFileText(number);
    if (text.front() != '-') text.insert(text.begin(), ' ');
    return text;
}

std::string TrimmedFileText(double number) {
    std::string text = ScreenText(number);
    const std::size_t first = text.front() == '-' ? 1 : 0;
    if (text.compare(first, 2, "0.") == 0) text.erase(first, 1);
    return text;
}

double ToNumber(std::string_view text) {
    text = Trimmed(text);
    const bool plus = text.starts_with('+');
    if (plus) text.remove_prefix(1);
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error == std::errc::result_out_of_range) Raise(ErrorNumber::Overflow);
    const bool whole = error == std::errc{} && end == text.data() + text.size();
    const bool twoSigns = plus && text.starts_with('-');
    if (!whole || twoSigns || !std::isfinite(number)) Raise(ErrorNumber::TypeMismatch);
    return number;
}

std::optional<int> WholeNumber(std::string_view text, int least, int most) {
    int number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc{} || stop != end || number < least || number > most) return std::nullopt;
    return number;
}

double LeadingNumber(std::string_view text) {
    text = Trimmed(text);
    double number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return std::isfinite(number) ? number : 0;
}

std::string_view Trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t";
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

}  // namespace orbkl4
