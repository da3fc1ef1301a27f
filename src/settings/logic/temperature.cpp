#include "settings/logic/temperature.h"

#include "base/arithmetic.h"
#include "link/logic/frame_check.h"
#include "link/logic/words.h"

#include <cmath>

namespace orbkl4 {

bool CheckTemperatureReply(const Bytes& reply, Sample& sample, double& word) {
    word = WordAt(reply, 1);
    sample.HeaderGyro = ByteAt(reply, 0);
    sample.TicksGyro = WordAt(reply, 3);
    sample.ChecksumGyro = WordAt(reply, 5);
    sample.CalcChecksumGyro = std::fmod(FrameSum(reply, 0, reply.size()), wordValues);
    return sample.CalcChecksumGyro == sample.ChecksumGyro;
}

double CelsiusOf(double word) { return RoundTo((word * 5 / wordValues - 0.5) * 100, 1); }

double FahrenheitOf(double celsius) { return RoundTo(celsius * 9 / 5 + 32, 1); }

double ReaumurOf(double celsius) { return RoundTo(celsius * 4 / 5, 1); }

double KelvinOf(double celsius) { return RoundTo(celsius + 273.15, 1); }

double RankineOf(double shownFahrenheit) { return RoundTo(shownFahrenheit + 459.67, 1); }

}  // namespace orbkl4
