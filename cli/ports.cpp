#include "cli/ports.h"

#include "cli/error.h"
#include "cli/line_hold.h"

#include <QSerialPortInfo>

#include <filesystem>
#include <map>
#include <set>

namespace orbkl4::cli {

namespace {

namespace fs = std::filesystem;

/// The names below /dev/serial/by-id, by the device that each stands for.
std::map<std::string, std::string> NamesById() {
    std::map<std::string, std::string> names;
    std::error_code ignored;
    for (const auto& link : fs::directory_iterator("/dev/serial/by-id", ignored)) {
        const fs::path device = fs::canonical(link.path(), ignored);
        if (!ignored) names[device.string()] = link.path().string();
    }
    return names;
}

/// What the system calls the adapters, by device. Looking for them takes long, so it's done once.
std::map<QString, std::string> Descriptions() {
    std::map<QString, std::string> descriptions;
    for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts())
        descriptions[info.systemLocation()] = info.description().toStdString();
    return descriptions;
}

/// The value of `key`, empty if there is none.
template <typename Key>
std::string Lookup(const std::map<Key, std::string>& texts, const Key& key) {
    const auto found = texts.find(key);
    return found == texts.end() ? std::string() : found->second;
}

PortState StateOf(Failure failure) {
    switch (failure) {
        case Failure::Denied: return PortState::Denied;
        case Failure::Busy: return PortState::Busy;
        default: return PortState::Absent;
    }
}

/// Sets the state of `port`, whose device is present, and the remedy.
void Inspect(Port& port) {
    try {
        const LineHold hold(port.device);
        port.state = PortState::Free;
    } catch (const CliError& error) {
        port.state = StateOf(error.Kind());
        port.remedy = error.Remedy();
    }
}

}  // namespace

std::vector<Port> ListPorts() {
    const auto names = NamesById();
    const auto descriptions = Descriptions();
    std::vector<Port> ports;
    for (int number = 1; number <= lastPortNumber; ++number) {
        Port& port = ports.emplace_back();
        port.number = number;
        port.device = DeviceOfPort(number);
        if (!port.device.present) continue;
        port.byId = Lookup(names, port.device.name.toStdString());
        port.description = Lookup(descriptions, port.device.name);
        Inspect(port);
    }
    return ports;
}

Lines OpenFreePorts(int baud) {
    Lines lines;
    std::set<QString> opened;
    for (int number = 1; number <= lastPortNumber; ++number) {
        const PortDevice device = DeviceOfPort(number);
        if (!device.present || !opened.insert(device.name).second) continue;
        try {
            lines.push_back(std::make_unique<Line>(device, baud));
        } catch (const CliError&) {
            // Held by another program, or not to be opened: not for us to ask.
        }
    }
    return lines;
}

}  // namespace orbkl4::cli
