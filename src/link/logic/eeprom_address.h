#pragma once

#include "link/logic/words.h"

#include <cstdint>

/// Addresses of the EEPROM words that the program itself uses.
namespace orbkl4::eeprom {

using Address = std::int16_t;  ///< even, 0 to 254

inline constexpr Address baudRate = 44;
inline constexpr Address biasCompensationType = 120;
inline constexpr Address magneticErrorGain = 126;
inline constexpr Address gyroGainScale = 130;
inline constexpr Address continuousMode =
    132;  ///< the command that the sensor repeats; 0 is polled
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

namespace orbkl4 {

/// Whether the word at `address` is a signed number; its band of addresses decides.
constexpr bool IsSignedAddress(eeprom::Address address) {
    return (address >= 66 && address <= 118) || (address >= 136 && address <= 194);
}

/// The number that `word` (0 to 65535) stands for at `address`.
constexpr double NumberOfWord(eeprom::Address address, double word) {
    return IsSignedAddress(address) ? ToSigned16(word) : word;
}

/// The word (0 to 65535) for `number` at `address`; the range isn't checked.
constexpr double WordOfNumber(eeprom::Address address, double number) {
    return IsSignedAddress(address) ? ToUnsigned16(number) : number;
}

}  // namespace orbkl4
