#pragma once

#include "link/logic/device_command.h"

#include <array>
#include <string_view>

namespace orbkl4::cli {

/// A kind of sample and the name that it has on the command line.
struct Channel {
    std::string_view name;
    DeviceCommand command;
};

/// The twelve channels.
inline constexpr std::array channels = [] {
    using enum DeviceCommand;
    return std::to_array<Channel>({
        {"sensor-bits", CmdRawSensorBits},
        {"vectors", CmdGyroStabVectors},
        {"instant-vectors", CmdInstantVectors},
        {"quaternion", CmdGyroStabQuaternion},
        {"instant-quaternion", CmdInstantQuaternion},
        {"matrix", CmdGyroStabMatrix},
        {"instant-matrix", CmdInstantMatrix},
        {"angles", CmdGyroStabEuler},
        {"instant-angles", CmdInstantEuler},
        {"angles-acc-rate", CmdEulerAccelRate},
        {"quat-vectors", CmdGyroStabQuatCompVectors},
        {"quat-instant-vectors", CmdGyroStabQuatInstantVectors},
    });
}();

/// The name of the mode that the word at `eeprom::continuousMode` sets: "polled", the channel that
/// the sensor repeats, or "unknown".
constexpr std::string_view ModeName(int word) {
    if (word == 0) return "polled";
    for (const Channel& channel : channels)
        if (ByteOf(channel.command) == word) return channel.name;
    return "unknown";
}

}  // namespace orbkl4::cli
