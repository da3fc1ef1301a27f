#include "cli/ports.h"

#include "cli/error.h"
#include "cli/line_hold.h"

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

PortState StateOf(Failure failure) {
    switch (failure) {
        case Failure::Denied: return PortState::Denied;
        case Failure::Busy: return PortState::Busy;
        default: return PortState::Absent;
    }
}

Port Inspected(int number) {
    Port port{.number = number, .device = DeviceOfPort(number), .byId = {}, .remedy = {}};
    if (!port.device.present) return port;
    try {
        const LineHold hold(port.device);
        port.state = PortState::Free;
    } catch (const CliError& error) {
        port.state = StateOf(error.Kind());
        port.remedy = error.Remedy();
    }
    return port;
}

}  // namespace

std::vector<Port> ListPorts() {
    const auto names = NamesById();
    std::vector<Port> ports;
    for (int number = 1; number <= lastPortNumber; ++number) {
        Port port = Inspected(number);
        const auto name = names.find(port.device.name.toStdString());
        if (port.device.present && name != names.end()) port.byId = name->second;
        ports.push_back(std::move(port));
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
