#include "cli/search.h"

#include "cli/error.h"
#include "cli/ports.h"
#include "cli/reply.h"
#include "link/logic/baud_rates.h"
#include "link/logic/identity.h"
#include "link/logic/requests.h"

#include <QFileInfo>

#include <algorithm>
#include <optional>
#include <utility>

namespace orbkl4::cli {

namespace {

/// A line that is asked, and what came over it for the present question.
struct Asked {
    std::unique_ptr<Line> line;
    Bytes received = {};
    std::optional<Bytes> reply = std::nullopt;
    std::optional<std::string> firmware = std::nullopt;
};

/// Runs `body` on each of `asked`; a line that goes meanwhile is closed and asked no more.
template <typename Body>
void ForEachLine(std::vector<Asked*>& asked, const Body& body) {
    std::erase_if(asked, [&](Asked* one) {
        try {
            body(*one);
            return false;
        } catch (const CliError& error) {
            if (error.Kind() != Failure::LineGone) throw;
            one->line.reset();
            return true;
        }
    });
}

/// Takes in what has come over `waiting` until all have their reply or `deadline` passes.
void CollectReplies(std::vector<Asked*> waiting, DeviceCommand command,
                    Clock::time_point deadline) {
    bool inTime = true;
    while (!waiting.empty() && inTime) {
        std::vector<pollfd> entries;
        entries.reserve(waiting.size());
        for (const Asked* one : waiting)
            entries.push_back({.fd = one->line->Handle(), .events = POLLIN, .revents = 0});
        inTime = WaitFor(entries, deadline) && Clock::now() < deadline;
        ForEachLine(waiting, [&](Asked& one) {
            one.line->TakeIn(one.received);
            one.reply = ReplyIn(one.received, command, inTime);
        });
        std::erase_if(waiting, [](const Asked* one) { return one->reply.has_value(); });
    }
}

/// Asks all of `asked` for `command`; afterwards only those that answered are left in it.
void AskEach(std::vector<Asked*>& asked, DeviceCommand command,
             std::chrono::milliseconds patience) {
    ForEachLine(asked, [&](Asked& one) {
        one.received.clear();
        one.reply.reset();
        one.line->Discard();
        one.line->Send(Request(command));
    });
    CollectReplies(asked, command, Clock::now() + patience);
    std::erase_if(asked, [](const Asked* one) { return !one->reply; });
}

/// Asks those of `all` that haven't answered yet at `speed`, and moves the answering ones to
/// `found`.
void AskAt(int speed, std::vector<Asked>& all, std::chrono::milliseconds patience,
           std::vector<FoundSensor>& found) {
    std::vector<Asked*> asked;
    for (Asked& one : all)
        if (one.line) asked.push_back(&one);
    for (Asked* one : asked)
        if (one->line->Baud() != speed) one->line->SetBaud(speed);
    AskEach(asked, DeviceCommand::CmdFirmwareVersion, patience);
    for (Asked* one : asked) one->firmware = FirmwareText(WordAt(*one->reply, 1));
    AskEach(asked, DeviceCommand::CmdSerialNumber, patience);
    for (Asked* one : asked) {
        found.push_back({std::move(one->line), static_cast<int>(WordAt(*one->reply, 1)),
                         std::move(*one->firmware)});
    }
}

PortDevice NamedDevice(const SensorChoice& choice) {
    if (choice.port) return DeviceOfPort(*choice.port);
    const QString name = QString::fromStdString(choice.device);
    const QString resolved = QFileInfo(name).canonicalFilePath();
    return DeviceAt(resolved.isEmpty() ? name : resolved);
}

std::vector<FoundSensor> AskNamedLine(const SensorChoice& choice, std::span<const int> speeds) {
    Lines lines;
    lines.push_back(std::make_unique<Line>(NamedDevice(choice), speeds.front()));
    const std::string name = lines.front()->Name();
    auto found = AskForSensors(std::move(lines), speeds, patienceWithOne);
    if (!found.empty()) return found;
    throw CliError(Failure::NoSensor, "no sensor answers on " + name,
                   "check its power, its wiring and its speed");
}

std::vector<FoundSensor> AskAllPorts(std::span<const int> speeds) {
    Lines lines = OpenFreePorts(speeds.front());
    if (lines.empty()) {
        throw CliError(Failure::NoLine, "none of the 16 ports is free",
                       "see which there are and why with \"orb-kl4 ports\"");
    }
    return AskForSensors(std::move(lines), speeds, patienceWithAll);
}

[[noreturn]] void RefuseSeveral(const std::vector<FoundSensor>& found) {
    std::string list;
    for (const FoundSensor& sensor : found) {
        list += (list.empty() ? "" : ", ") + std::to_string(sensor.serialNumber) + " on " +
                sensor.line->Name();
    }
    throw CliError(Failure::SeveralSensors, "there are several sensors: " + list,
                   "name one by --sensor, --port or --device");
}

}  // namespace

std::vector<int> SpeedsToTry(const SensorChoice& choice) {
    if (choice.baud) return {*choice.baud};
    std::vector<int> speeds;
    speeds.reserve(baudSearchOrder.size());
    for (const BaudRate& rate : baudSearchOrder)
        speeds.push_back(std::stoi(std::string(rate.text)));
    return speeds;
}

std::vector<FoundSensor> AskForSensors(Lines lines, std::span<const int> speeds,
                                       std::chrono::milliseconds patience) {
    constexpr int rounds = 2;
    std::vector<Asked> all;
    for (auto& line : lines) all.push_back({.line = std::move(line)});
    std::vector<FoundSensor> found;
    for (int round = 0; round < rounds; ++round) {
        for (const int speed : speeds) AskAt(speed, all, patience, found);
    }
    return found;
}

FoundSensor FindSensor(const SensorChoice& choice) {
    const std::vector<int> speeds = SpeedsToTry(choice);
    const bool named = choice.port || !choice.device.empty();
    std::vector<FoundSensor> found = named ? AskNamedLine(choice, speeds) : AskAllPorts(speeds);
    if (choice.serialNumber) {
        std::erase_if(found, [&](const FoundSensor& sensor) {
            return sensor.serialNumber != *choice.serialNumber;
        });
    }
    if (found.empty()) {
        const std::string wanted =
            choice.serialNumber ? "sensor " + std::to_string(*choice.serialNumber) : "sensor";
        throw CliError(Failure::NoSensor, "no " + wanted + " was found",
                       "see what answers where with \"orb-kl4 ports --probe\"");
    }
    if (found.size() > 1) RefuseSeveral(found);
    return std::move(found.front());
}

}  // namespace orbkl4::cli
