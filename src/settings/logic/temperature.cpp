#include "settings/logic/temperature.h"

#include "base/arithmetic.h"

namespace orbkl4 {

double CelsiusOf(double word) { return RoundTo((word * 5 / 65536 - 0.5) * 100, 1); }

double FahrenheitOf(double celsius) { return RoundTo(celsius * 9 / 5 + 32, 1); }

double ReaumurOf(double celsius) { return RoundTo(celsius * 4 / 5, 1); }

double KelvinOf(double celsius) { return RoundTo(celsius + 273.15, 1); }

double RankineOf(double shownFahrenheit) { return RoundTo(shownFahrenheit + 459.67, 1); }

}  // namespace orbkl4
