#pragma once

#include "bench/raw_loop.h"

namespace orbkl4::bench {

/// Samples `command` on the line `device` for `seconds` by Qt's serial port and event loop and
/// nothing else: the least that a program with windows can do.
LoopResult QtPortLoop(const std::string& device, DeviceCommand command, int baud, double seconds);

}  // namespace orbkl4::bench
