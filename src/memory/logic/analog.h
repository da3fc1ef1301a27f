#pragma once

#include "link/logic/eeprom_address.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <string_view>

namespace orbkl4 {

/// One of the analog words: its label, its range as text, and the greatest number to enter.
struct AnalogWord {
    eeprom::Address address;
    std::string_view label;
    std::string_view range;
    int maximum;
};

/// The eleven analog words, in the order of reading and writing. The range of the command byte
/// is another one for the custom function.
inline constexpr auto analogWords = std::to_array<AnalogWord>({
    {202, "Analog Command Byte", "0-11", 65535},
    {204, "Analog Output Test 1", "0-4095", 4095},
    {206, "Analog Output Test 2", "0-4095", 4095},
    {208, "Analog Output Test 3", "0-4095", 4095},
    {210, "Analog Output Test 4", "0-4095", 4095},
    {212, "Analog Accel Scale Factor", "0-65535", 65535},
    {214, "Analog Mag Scale Factor", "0-65535", 65535},
    {216, "Analog Gyro Scale Factor", "0-65535", 65535},
    {218, "Analog Euler Scale Factor", "0-65535", 65535},
    {220, "Analog Quaternion Scale Factor", "0-65535", 65535},
    {222, "Analog MidScale Reference", "0-65535", 65535},
});

static_assert(analogWords.front().address == eeprom::analogCommand &&
              analogWords.back().address == eeprom::analogMidScale);

/// An output function; its row number is the command byte.
struct AnalogFunction {
    std::string_view text;
    std::span<const eeprom::Address> adjustable;  ///< the words that it uses

    /// Whether the field of `address` can be changed under this function.
    constexpr bool Adjusts(eeprom::Address address) const {
        return std::ranges::find(adjustable, address) != adjustable.end();
    }
};

namespace detail {

template <std::size_t count>
using Addresses = std::array<eeprom::Address, count>;

inline constexpr Addresses<4> analogTest{204, 206, 208, 210};
inline constexpr Addresses<2> analogEuler{218, 222};
inline constexpr Addresses<2> analogQuaternion{220, 222};
inline constexpr Addresses<2> analogAcceleration{212, 222};
inline constexpr Addresses<2> analogMagneticField{214, 222};
inline constexpr Addresses<2> analogAngularRate{216, 222};
inline constexpr Addresses<11> analogAll{202, 204, 206, 208, 210, 212, 214, 216, 218, 220, 222};

}  // namespace detail

inline constexpr auto analogFunctions = std::to_array<AnalogFunction>({
    {"Off", {}},
    {"Test", detail::analogTest},
    {"Instantaneous Euler Angles", detail::analogEuler},
    {"Gyro-Stabilized Euler Angles", detail::analogEuler},
    {"Instantaneous Quaternion", detail::analogQuaternion},
    {"Gyro-Stabilized Quaternion", detail::analogQuaternion},
    {"Instantaneous Acceleration", detail::analogAcceleration},
    {"Gyro-Stabilized Acceleration", detail::analogAcceleration},
    {"Instantaneous Magnetic Field", detail::analogMagneticField},
    {"Gyro-Stabilized Magnetic Field", detail::analogMagneticField},
    {"Instantaneous Angular Rate", detail::analogAngularRate},
    {"Compensated Angular Rate", detail::analogAngularRate},
    {"Custom Configuration", detail::analogAll},
});

/// The row for a command byte that the user enters: 12 or more.
inline constexpr int customAnalogFunction = 12;
inline constexpr std::string_view customAnalogRange = "12->";

static_assert(analogFunctions.size() == customAnalogFunction + 1);

}  // namespace orbkl4
