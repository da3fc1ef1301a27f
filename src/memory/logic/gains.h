#pragma once

#include "base/bytes.h"

namespace orbkl4 {

/// The current system gains, words of 0 to 65535, named after the EEPROM words 124, 126 and 128.
struct SystemGains {
    double accelerometer, magnetometer, biasTracking;
};

/// The request that writes the gains; error 6 (overflow) for one outside 0 to 65535.
Bytes WriteGainsRequest(const SystemGains& gains);

/// The gains in `reply`, a checked reply to `CmdReadSystemGains`.
SystemGains GainsIn(const Bytes& reply);

}  // namespace orbkl4
