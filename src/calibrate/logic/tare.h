#pragma once

#include "base/bytes.h"
#include "link/logic/device_command.h"

namespace orbkl4 {

/// Whether `reply` ends a tare or its removal (`command`): 5 bytes, its header, and a sum that
/// isn't wrapped. An empty reply doesn't.
bool IsTareReply(const Bytes& reply, DeviceCommand command);

}  // namespace orbkl4
