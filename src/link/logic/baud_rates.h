#pragma once

#include <array>
#include <string>
#include <string_view>

namespace orbkl4 {

/// The speeds that a sensor can be set to, in baud, in the order in which it is reset.
inline constexpr std::array<std::string_view, 3> baudRates{"19200", "38400", "115200"};

/// The same in the order of the search: the sensor's default speed first.
inline constexpr std::array<std::string_view, 3> baudSearchOrder{"38400", "115200", "19200"};

/// The line settings at `baud`: no parity, 8 data bits, 1 stop bit.
inline std::string LineSettingsAt(std::string_view baud) { return std::string(baud) + ",n,8,1"; }

/// The first of `baudRates` that occurs in `settings`, empty where none does.
constexpr std::string_view BaudRateIn(std::string_view settings) {
    for (const std::string_view baud : baudRates)
        if (settings.find(baud) != std::string_view::npos) return baud;
    return {};
}

}  // namespace orbkl4
