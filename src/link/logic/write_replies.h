#pragma once

#include "base/bytes.h"

#include <cstdint>
#include <span>

namespace orbkl4 {

/// What is to be said of the replies to several EEPROM writes.
enum class WriteVerdict : std::uint8_t { Good, Malformed, BadChecksum };

/// The verdict on `replies`, which are to be one frame for each element of `mustPass`, back to
/// back: malformed by their length or a header, bad where a frame that must pass has a bad
/// checksum. Error 9 (subscript out of range) where nothing has come.
WriteVerdict CheckWriteReplies(const Bytes& replies, std::span<const bool> mustPass);

}  // namespace orbkl4
