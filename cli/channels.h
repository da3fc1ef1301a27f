#pragma once

#include "acquire/logic/file_kinds.h"
#include "link/logic/device_command.h"

#include <array>
#include <string_view>

namespace orbkl4::cli {

/// A kind of sample, the name that it has on the command line, and the workbench's file for it.
struct Channel {
    std::string_view name;
    DeviceCommand command;
    FileKind kind;
};

/// The twelve channels.
inline constexpr std::array channels = [] {
    using enum DeviceCommand;
    return std::to_array<Channel>({
        {"sensor-bits", CmdRawSensorBits, FileKind::SensorBits},
        {"vectors", CmdGyroStabVectors, FileKind::Vectors},
        {"instant-vectors", CmdInstantVectors, FileKind::Vectors},
        {"quaternion", CmdGyroStabQuaternion, FileKind::Quaternions},
        {"instant-quaternion", CmdInstantQuaternion, FileKind::Quaternions},
        {"matrix", CmdGyroStabMatrix, FileKind::Matrix},
        {"instant-matrix", CmdInstantMatrix, FileKind::Matrix},
        {"angles", CmdGyroStabEuler, FileKind::Angles},
        {"instant-angles", CmdInstantEuler, FileKind::Angles},
        {"angles-acc-rate", CmdEulerAccelRate, FileKind::AnglesAccRateVector},
        {"quat-vectors", CmdGyroStabQuatCompVectors, FileKind::QuatVecs},
        {"quat-instant-vectors", CmdGyroStabQuatInstantVectors, FileKind::QuatVecs},
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
