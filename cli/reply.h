#pragma once

#include "base/bytes.h"
#include "link/logic/device_command.h"

#include <optional>

namespace orbkl4::cli {

/// The first whole reply to `command` in `received`, its checksum right. Stray bytes and the
/// samples of continuous mode, of which the first may be cut, are passed over. While `moreMayCome`,
/// a frame that has only begun is waited for: nothing is then looked for inside it.
std::optional<Bytes> ReplyIn(const Bytes& received, DeviceCommand command, bool moreMayCome);

}  // namespace orbkl4::cli
