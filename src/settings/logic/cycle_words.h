#pragma once

#include "link/logic/eeprom_address.h"

#include <array>

namespace orbkl4 {

/// A prescaler of the calculation cycle's timer and its option button.
struct PrescalerRow {
    const char* name;
    const char* caption;
    double value;
};

inline constexpr auto prescalerRows = std::to_array<PrescalerRow>({
    {"opt1", "1", 1},
    {"opt4", "4", 4},
    {"opt16", "16", 16},
});

/// A factor of the calculation cycle, 1 to `maximum`, with its number field.
struct FactorRow {
    const char* name;
    eeprom::Address address;
    const char* range;
    double maximum;
    double standard;  ///< the value that "Default" sets
};

inline constexpr auto factorRows = std::to_array<FactorRow>({
    {"NumEdit240", eeprom::timer2Postscaler, "1-16", 16, 16},
    {"NumEdit242", eeprom::timer2Compare, "1-256", 256, 256},
    {"NumEdit246", eeprom::timerTicksInterval, "1-100", 100, 1},
});

inline constexpr double standardPrescaler = 16;

}  // namespace orbkl4
