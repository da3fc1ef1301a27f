#pragma once

#include "link/logic/eeprom_address.h"

#include <array>

namespace orbkl4 {

/// One word of the sensor's EEPROM and what it is to hold.
struct EepromWrite {
    eeprom::Address address;
    double word;
};

/// Polled mode and the default calculation cycle of 6.5536 ms, in the order of writing.
inline constexpr auto resetWrites = std::to_array<EepromWrite>({
    {eeprom::continuousMode, 0},
    {eeprom::timer2Prescaler, 16},
    {eeprom::timer2Postscaler, 16},
    {eeprom::timer2Compare, 256},
    {eeprom::timerTicksInterval, 1},
});

}  // namespace orbkl4
