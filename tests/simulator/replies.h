#pragma once

#include "simulator/device.h"

namespace orbkl4sim {

/// The reply to the request for the firmware, 3101: 0x0C1D, and the sum of that and 0xF0.
inline const Bytes kFirmware{0xF0, 0x0C, 0x1D, 0x0D, 0x0D};

/// The calculation cycle of the factory: 16 x 16 x 256 x 1 counts of 100 ns each.
inline constexpr Time kCycle = std::chrono::nanoseconds(6553600);

/// What `device` replies to `request` at `start`; nothing if it keeps silent.
inline Bytes ReplyOf(Device& device, const Bytes& request, Time start = {}) {
    const auto answer = device.Handle(request, start);
    return answer ? answer->reply : Bytes{};
}

}  // namespace orbkl4sim
