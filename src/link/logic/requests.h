#pragma once

#include "base/bytes.h"
#include "link/logic/device_command.h"

#include <cstdint>
#include <initializer_list>

namespace orbkl4 {

/// The bytes of a request; error 9 (subscript out of range) where `parameters` are not as many as
/// `commandFormats` says.
Bytes Request(DeviceCommand command, std::initializer_list<std::uint8_t> parameters = {});

/// As `Request`, but puts the bytes into `request`.
void BuildRequest(Bytes& request, DeviceCommand command,
                  std::initializer_list<std::uint8_t> parameters = {});

/// The request for the word at `address` (even, 0 to 254); error 6 (overflow) for one that
/// doesn't fit a byte.
Bytes ReadEepromRequest(int address);

/// The request that writes `word` (0 to 65535) at `address` (even, 0 to 254); error 6 (overflow)
/// outside these.
Bytes WriteEepromRequest(int address, double word);

}  // namespace orbkl4
