#include "settings/logic/tick_interval.h"

#include "base/number_text.h"

namespace orbkl4 {

double TickInterval(double prescaler, double postscaler, double compare, double ticksInterval) {
    return prescaler * postscaler * compare * ticksInterval * 1e-7 * 1000;
}

std::string PadToFourDecimals(double value) {
    constexpr std::size_t decimals = 4;
    std::string text = TrimmedFileText(value);
    const std::size_t point = text.find('.');
    if (point == std::string::npos) return text + ".0000";
    const std::size_t present = text.size() - point - 1;
    if (present < decimals) text.append(decimals - present, '0');
    return text;
}

}  // namespace orbkl4
