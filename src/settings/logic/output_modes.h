#pragma once

#include "link/logic/device_command.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace orbkl4 {

/// An output mode of the sensor: option button, name, and the byte to write to address 132.
struct OutputMode {
    std::string_view option;
    std::string_view name;
    std::uint8_t command;  ///< that the sensor repeats; 0 is polled mode
};

/// All modes in the order of the options; polled mode is the last.
inline constexpr auto outputModes = [] {
    using enum DeviceCommand;
    return std::to_array<OutputMode>({
        {"optRSB", "Raw Sensor Bits", ByteOf(CmdRawSensorBits)},
        {"optGSV", "Gyro-Stabilized Vectors", ByteOf(CmdGyroStabVectors)},
        {"optIV", "Instantaneous Vectors", ByteOf(CmdInstantVectors)},
        {"optGSQ", "Gyro-Stabilized Quaternions", ByteOf(CmdGyroStabQuaternion)},
        {"optIQ", "Instantaneous Quaternions", ByteOf(CmdInstantQuaternion)},
        {"optGSM", "Gyro-Stabilized Orientation Matrix", ByteOf(CmdGyroStabMatrix)},
        {"optIM", "Instantaneous Orientation Matrix", ByteOf(CmdInstantMatrix)},
        {"optGSEA", "Gyro-Stabilized Euler Angles", ByteOf(CmdGyroStabEuler)},
        {"optIEA", "Instantaneous Euler Angles", ByteOf(CmdInstantEuler)},
        // The names of the next two are swapped against the commands', on purpose.
        {"optQIV", "Quaternions and Instant Vectors", ByteOf(CmdGyroStabQuatCompVectors)},
        {"optQCV", "Quaternions and Comp Vectors", ByteOf(CmdGyroStabQuatInstantVectors)},
        {"optAAV", "Euler Angles, Accels and Vectors", ByteOf(CmdEulerAccelRate)},
        {"optPolled", "Polled", 0},
    });
}();

static_assert(outputModes.size() == 13 && outputModes.back().command == 0);

}  // namespace orbkl4
