#pragma once

#include "link/logic/device_command.h"
#include "link/logic/frame_check.h"

#include <string>

namespace orbkl4 {

/// The question put to the user for a faulty reply to an EEPROM read, a gains read or a gains
/// write; empty where there is no fault.
std::string RetryText(DeviceCommand command, ReplyFault fault);

}  // namespace orbkl4
