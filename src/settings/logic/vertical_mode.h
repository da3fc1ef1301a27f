#pragma once

#include "link/logic/eeprom_address.h"
#include "link/logic/reset_writes.h"

#include <array>
#include <cstdint>

namespace orbkl4 {

/// The mode of the sensor, which the EEPROM words 120 and 126 determine.
enum class GyroMode : std::uint8_t { Vertical, Normal, Other };

/// The writes that set vertical gyro mode, in order.
inline constexpr auto verticalModeWrites =
    std::to_array<EepromWrite>({{eeprom::biasCompensationType, 0}, {eeprom::magneticErrorGain, 0}});

/// The writes that set normal mode, in order.
inline constexpr auto normalModeWrites = std::to_array<EepromWrite>(
    {{eeprom::biasCompensationType, 1}, {eeprom::magneticErrorGain, 100}});

/// The mode for the words at 120 and 126.
constexpr GyroMode GyroModeOf(double word120, double word126) {
    const auto holds = [&](const std::array<EepromWrite, 2>& writes) {
        return word120 == writes[0].word && word126 == writes[1].word;
    };
    if (holds(verticalModeWrites)) return GyroMode::Vertical;
    return holds(normalModeWrites) ? GyroMode::Normal : GyroMode::Other;
}

}  // namespace orbkl4
