#pragma once

#include "link/logic/device_command.h"

#include <cstdint>

namespace orbkl4 {

class MSComm;

/// What is to be done about a reply: take it, send its request again, or go on without it.
enum class ReplyVerdict : std::uint8_t { Good, Retry, Skip };

/// Moves the reply to `command` from `port` into `AppState.CommandBytes` and checks it; the user
/// decides on a faulty one. Error 9 (subscript out of range) where nothing has come.
ReplyVerdict TakeReply(MSComm& port, DeviceCommand command);

}  // namespace orbkl4
