#pragma once

#include "link/logic/eeprom_address.h"

#include <array>
#include <string_view>

namespace orbkl4 {

/// A matrix in the EEPROM: nine successive words, column by column.
struct MatrixOption {
    std::string_view caption;
    eeprom::Address base;  ///< address of M11
};

/// The matrices in the order of their option buttons.
inline constexpr auto matrixOptions = std::to_array<MatrixOption>({
    {"Accelerometer Orthogonality Matrix", 102},
    {"Magnetometer Orthogonality Matrix", 66},
    {"Gyroscope Orthogonality Matrix", 84},
    {"Gyro Acceleration Sensitivity Matrix", 178},
    {"Tare Matrix", 136},
    {"Iron Calibration Matrix", 154},
});

}  // namespace orbkl4
