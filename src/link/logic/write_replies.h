#pragma once

#include "base/bytes.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace orbkl4 {

/// What a check of the replies to several EEPROM writes has found.
enum class WriteVerdict : std::uint8_t { Good, Malformed, BadChecksum };

/// Checks `replies`, one frame for each element of `mustPass`, back to back: `Malformed` by their
/// length or a header, `BadChecksum` where the checksum of a frame that must pass fails. Error 9
/// (subscript out of range) where nothing has come.
WriteVerdict CheckWriteReplies(const Bytes& replies, std::span<const bool> mustPass);

/// The message for `verdict`: `succeeded`, `badChecksum`, or that of a malformed reply.
std::string_view WriteVerdictText(WriteVerdict verdict, std::string_view succeeded,
                                  std::string_view badChecksum);

}  // namespace orbkl4
