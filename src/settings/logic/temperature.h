#pragma once

#include "base/bytes.h"
#include "state/sample_state.h"

namespace orbkl4 {

/// Whether the checksum of the 7-byte `reply` holds; its temperature word goes to `word`, header,
/// ticks and checksums to the gyro side of `sample`, in either case.
bool CheckTemperatureReply(const Bytes& reply, Sample& sample, double& word);

/// Degrees Celsius of a raw temperature word, one decimal; 5 V full scale, 0.5 V at 0, 10 mV each.
double CelsiusOf(double word);

/// Degrees Fahrenheit, one decimal.
double FahrenheitOf(double celsius);

/// Degrees Reaumur, one decimal.
double ReaumurOf(double celsius);

/// Kelvin, one decimal.
double KelvinOf(double celsius);

/// Degrees Rankine, one decimal, of the Fahrenheit shown: its rounding is carried on.
double RankineOf(double shownFahrenheit);

}  // namespace orbkl4
