#pragma once

#include "link/logic/device_command.h"
#include "link/logic/frame_check.h"

#include <string>
#include <string_view>

namespace orbkl4 {

/// The message for a reply of the wrong length or with a wrong header, where no retry is offered.
inline constexpr std::string_view malformedReplyText = "Return bytes and/or header failed!";

/// The Retry or Cancel question about a faulty reply to an EEPROM read, a gains read or a gains
/// write; empty where there is no fault.
std::string RetryText(DeviceCommand command, ReplyFault fault);

}  // namespace orbkl4
