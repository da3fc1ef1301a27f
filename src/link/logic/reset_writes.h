#pragma once

#include "link/logic/eeprom_address.h"

#include <array>

namespace orbkl4 {

/// A word to write to the sensor's EEPROM.
struct EepromWrite {
    eeprom::Address address;
    double word;
};

/// The default settings, in the order of writing: polled mode and a calculation cycle of 6.5536 ms.
inline constexpr auto resetWrites = std::to_array<EepromWrite>({
    {eeprom::continuousMode, 0},
    {eeprom::timer2Prescaler, 16},
    {eeprom::timer2Postscaler, 16},
    {eeprom::timer2Compare, 256},
    {eeprom::timerTicksInterval, 1},
});

}  // namespace orbkl4
