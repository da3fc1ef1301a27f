#pragma once

#include "base/bytes.h"
#include "link/logic/device_command.h"

#include <cstdint>
#include <initializer_list>

namespace orbkl4 {

/// The bytes of a request, `parameters` being just those that `commandFormats` counts for it; error
/// 9 (subscript out of range) for another number of them.
Bytes Request(DeviceCommand command, std::initializer_list<std::uint8_t> parameters = {});

/// Replaces the contents of `request` by the bytes of a request; otherwise as `Request`.
void BuildRequest(Bytes& request, DeviceCommand command,
                  std::initializer_list<std::uint8_t> parameters = {});

/// The request for the word at `address` (even, 0 to 254); error 6 (overflow) outside a byte.
Bytes ReadEepromRequest(int address);

/// The request that writes `word` (0 to 65535) at `address` (even, 0 to 254); error 6 (overflow)
/// outside these.
Bytes WriteEepromRequest(int address, double word);

}  // namespace orbkl4
