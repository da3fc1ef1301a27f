#pragma once

#include "base/bytes.h"
#include "link/logic/device_command.h"

#include <cstdint>

namespace orbkl4 {

class MSComm;
class Screen;

/// Opens `port` with the port number and line settings of `AppState`, unless it is open; an error
/// is reported under the name of `screen` and goes no further.
void OpenCommPort(MSComm& port, const Screen& screen);

/// Closes `port`, unless it is closed; an error is reported as by `OpenCommPort`.
void CloseCommPort(MSComm& port, const Screen& screen);

/// Sends `request` by way of `AppState.CommandBytes`; errors of `MSComm::Output`.
void Send(MSComm& port, const Bytes& request);

/// Sends the request of `command`, which takes no parameters (else error 9), in the same way; it
/// allocates nothing once `AppState.CommandBytes` has held as many bytes.
void Send(MSComm& port, DeviceCommand command);

/// Blocks the thread for `milliseconds` (0 or less: not at all); no event runs meanwhile. Error 6
/// (overflow) where the difference of two tick counts leaves the signed 32-bit range.
void WaitMilliseconds(std::int32_t milliseconds);

}  // namespace orbkl4
