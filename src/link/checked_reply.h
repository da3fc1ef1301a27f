#pragma once

#include "link/logic/device_command.h"

#include <cstdint>

namespace orbkl4 {

class MSComm;

/// What to do with a reply: use it, send its request again, or go on without it.
enum class ReplyVerdict : std::uint8_t { Good, Retry, Skip };

/// Moves the reply to `command` from `port` into `AppState.CommandBytes` and checks it; the user
/// decides about a faulty one. Error 9 (subscript out of range) where nothing has come.
ReplyVerdict TakeCheckedReply(MSComm& port, DeviceCommand command);

}  // namespace orbkl4
