#pragma once

#include <string>

namespace orbkl4 {

/// The sensor's timer tick interval in milliseconds; the unit of the four words' product is 100 ns.
double TickInterval(double prescaler, double postscaler, double compare, double ticksInterval);

/// The text of `value` with at least four decimals and no digit before the point below 1.
std::string PadToFourDecimals(double value);

}  // namespace orbkl4
