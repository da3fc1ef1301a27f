#pragma once

#include <array>
#include <string>
#include <string_view>

namespace orbkl4 {

/// A speed that a sensor can be set to.
struct BaudRate {
    std::string_view text;  ///< in baud
    int code;               ///< the sensor's word for it, at `eeprom::baudRate`
};

/// All speeds, in the order in which a sensor is reset.
inline constexpr auto baudRates =
    std::to_array<BaudRate>({{"19200", 129}, {"38400", 64}, {"115200", 21}});

/// The speed that a sensor has unless it was set to another.
inline constexpr const BaudRate& defaultBaudRate = baudRates[1];

/// All speeds, in the order of the search.
inline constexpr auto baudSearchOrder =
    std::to_array<BaudRate>({defaultBaudRate, baudRates[2], baudRates[0]});

/// The line settings at the speed `baud`: no parity, 8 data bits, 1 stop bit.
inline std::string LineSettingsAt(std::string_view baud) { return std::string(baud) + ",n,8,1"; }

/// The first of `baudRates` whose text occurs in `settings`, null where none does.
constexpr const BaudRate* BaudRateIn(std::string_view settings) {
    for (const BaudRate& rate : baudRates)
        if (settings.find(rate.text) != std::string_view::npos) return &rate;
    return nullptr;
}

}  // namespace orbkl4
