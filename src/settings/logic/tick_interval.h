#pragma once

#include <string>

namespace orbkl4 {

/// The sensor's timer tick interval in milliseconds: the product of the four words times 100 ns.
double TickInterval(double prescaler, double postscaler, double compare, double ticksInterval);

/// The text of `value` with at least four decimals, and without a digit before the point below 1.
std::string PadToFourDecimals(double value);

}  // namespace orbkl4
