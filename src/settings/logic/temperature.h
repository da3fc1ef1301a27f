#pragma once

namespace orbkl4 {

/// Takes the 7-byte reply in `AppState.CommandBytes` apart: its temperature word goes to `word`,
/// the rest into `SampleState`. Whether its checksum holds.
bool CheckTemperatureReply(double& word);

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
