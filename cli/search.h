#pragma once

#include "cli/line.h"
#include "cli/options.h"
#include "platform/system/port_device.h"

#include <chrono>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace orbkl4::cli {

/// A sensor that has said who it is, on its open line.
struct FoundSensor {
    std::unique_ptr<Line> line;
    int serialNumber = 0;
    std::string firmware;  ///< with its points, such as "3.1.01"
};

using Lines = std::vector<std::unique_ptr<Line>>;

/// How long a sensor is given to answer at each speed, when one line is asked and when all are.
inline constexpr std::chrono::milliseconds patienceWithOne{500};
inline constexpr std::chrono::milliseconds patienceWithAll{250};

/// The speeds to try for `choice`, in order.
std::vector<int> SpeedsToTry(const SensorChoice& choice);

/// Asks all `lines` side by side who is there, at each of `speeds`, twice if nobody answers, and
/// returns those that a sensor answered on; the others are closed. Only the requests for firmware
/// and serial number are sent, the latter only if the former was answered.
std::vector<FoundSensor> AskForSensors(Lines lines, std::span<const int> speeds,
                                       std::chrono::milliseconds patience);

/// The one sensor that `choice` means: on the line that it names, else on any of the 16 ports that
/// is free. Throws `NoLine`, `Denied`, `Busy`, `NoSensor` or `SeveralSensors`.
FoundSensor FindSensor(const SensorChoice& choice);

}  // namespace orbkl4::cli
