#pragma once

#include <cstdint>

/// Addresses of those EEPROM words that the program itself knows a use for.
namespace orbkl4::eeprom {

using Address = std::int16_t;  ///< even, 0 to 254

inline constexpr Address baudRate = 44;
inline constexpr Address biasCompensationType = 120;
inline constexpr Address magneticErrorGain = 126;
inline constexpr Address gyroGainScale = 130;
inline constexpr Address continuousMode = 132;  ///< the command repeated by itself; 0 is polled
inline constexpr Address serialNumber = 134;
inline constexpr Address firmwareVersion = 198;
inline constexpr Address analogCommand = 202;
inline constexpr Address analogMidScale = 222;
inline constexpr Address accGainScale = 230;
inline constexpr Address magGainScale = 232;
inline constexpr Address timer2Prescaler = 238;
inline constexpr Address timer2Postscaler = 240;
inline constexpr Address timer2Compare = 242;
inline constexpr Address timerTicksInterval = 246;
inline constexpr Address last = 254;

}  // namespace orbkl4::eeprom
