#pragma once

#include <optional>
#include <string>

namespace orbkl4::cli {

/// Which sensor the user means; nothing given means the only one there is.
struct SensorChoice {
    std::string device = {};                 ///< path of its line; empty: not given
    std::optional<int> port = std::nullopt;  ///< port number, 1 to 16
    std::optional<int> serialNumber = std::nullopt;
    std::optional<int> baud = std::nullopt;  ///< none: the three speeds are tried
};

/// What every command has.
struct Options {
    SensorChoice sensor;
    bool json = false;
    bool quiet = false;
};

}  // namespace orbkl4::cli
