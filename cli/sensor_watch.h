#pragma once

#include "cli/record_file.h"
#include "cli/session.h"

#include <functional>
#include <optional>
#include <string>

namespace orbkl4::cli {

/// A sensor to record, with what is to be known of it beforehand.
struct Source {
    Session session;
    RecordedSensor sensor;
};

/// The sensor that `choice` means; throws what `FindSensor` and `Session::Exchange` do.
Source OpenSource(const SensorChoice& choice);

/// As `OpenSource`, but waits for a sensor that isn't there, or can't be used, yet. Calls
/// `report` with each new reason for that. Throws `Failure::SeveralSensors` and `Interrupted`.
Source AwaitSource(const SensorChoice& choice,
                   const std::function<void(const std::string&)>& report);

/// Waits until sensor `serialNumber` answers on the device that `choice` names or on any port;
/// none where `deadline` passes first. Throws `Failure::Interrupted`.
std::optional<Session> AwaitReturn(const SensorChoice& choice, int serialNumber,
                                   Clock::time_point deadline);

}  // namespace orbkl4::cli
