#pragma once

#include "base/bytes.h"
#include "link/logic/device_command.h"

namespace orbkl4 {

class MSComm;

// For handlers that may run after their port was closed: each call ignores error 8018 (operation on
// a closed port), so that the handler goes on with its next statement.

/// `port.Input(bytes)`; on a closed port `bytes` stay as they are.
void InputUnlessClosed(MSComm& port, Bytes& bytes);

/// `Send(port, command)`; on a closed port nothing goes out.
void SendUnlessClosed(MSComm& port, DeviceCommand command);

}  // namespace orbkl4
