#pragma once

#include "cli/search.h"
#include "platform/system/port_device.h"

#include <cstdint>
#include <string>
#include <vector>

namespace orbkl4::cli {

enum class PortState : std::uint8_t { Free, Absent, Denied, Busy };

/// One of the 16 ports, and what is on it.
struct Port {
    int number = 0;
    PortDevice device;
    std::string byId;         ///< its name below /dev/serial/by-id; empty if it has none
    std::string description;  ///< what the system calls its adapter; empty if it has no name
    PortState state = PortState::Absent;
    std::string remedy;  ///< what can be done if it isn't free
};

/// All 16 ports. A device is opened for a moment to see whether it is free; nothing is set or sent.
std::vector<Port> ListPorts();

/// The lines of all ports that are free, opened at `baud`; a device on two ports comes once.
Lines OpenFreePorts(int baud);

}  // namespace orbkl4::cli
