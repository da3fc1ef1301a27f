#include "cli/sensor_watch.h"

#include "cli/error.h"

#include <algorithm>

namespace orbkl4::cli {

namespace {

using namespace std::chrono_literals;

constexpr auto timeBetweenLooks = 500ms;

void PauseUntil(Clock::time_point end) { WaitFor({}, end); }

/// Whether what is wrong may be right in a moment, without anybody's changing the command.
bool MayPass(const CliError& error) {
    switch (error.Kind()) {
        case Failure::NoLine:
        case Failure::Denied:  // until the system has set a new device's rights
        case Failure::Busy:
        case Failure::NoSensor:
        case Failure::NoAnswer:
        case Failure::BadAnswer:
        case Failure::LineGone: return true;
        default: return false;
    }
}

/// The sensor that `choice` means, none where it isn't there.
std::optional<Session> Find(const SensorChoice& choice) {
    try {
        return Session(choice);
    } catch (const CliError& error) {
        if (!MayPass(error)) throw;
        return std::nullopt;
    }
}

}  // namespace

Source OpenSource(const SensorChoice& choice) {
    Session session(choice);
    const Line& line = session.SerialLine();
    RecordedSensor sensor{.device = line.Name(),
                          .baud = line.Baud(),
                          .serialNumber = session.SerialNumber(),
                          .firmware = session.Firmware(),
                          .gainScales = session.ReadGainScales(),
                          .tickIntervalMilliseconds = session.ReadTickInterval()};
    return {std::move(session), std::move(sensor)};
}

Source AwaitSource(const SensorChoice& choice,
                   const std::function<void(const std::string&)>& report) {
    std::string reported;
    while (true) {
        try {
            return OpenSource(choice);
        } catch (const CliError& error) {
            if (!MayPass(error)) throw;
            if (error.what() != reported) report(reported = error.what());
        }
        PauseUntil(Clock::now() + timeBetweenLooks);
    }
}

std::optional<Session> AwaitReturn(const SensorChoice& choice, int serialNumber,
                                   Clock::time_point deadline) {
    const SensorChoice anywhere{.serialNumber = serialNumber, .baud = choice.baud};
    SensorChoice there = anywhere;
    there.device = choice.device;
    while (Clock::now() < deadline) {
        if (!there.device.empty()) {
            if (auto session = Find(there)) return session;
        }
        if (auto session = Find(anywhere)) return session;
        PauseUntil(std::min(deadline, Clock::now() + timeBetweenLooks));
    }
    return std::nullopt;
}

}  // namespace orbkl4::cli
