#pragma once

#include "base/bytes.h"
#include "link/logic/device_command.h"

#include <cstddef>

namespace orbkl4 {

/// What is wrong with a reply: the first of these that applies.
enum class ReplyFault { None, Header, Length, Checksum };

/// The unwrapped sum of header byte and words of the frame of `length` bytes (odd) at `offset`,
/// without its checksum word; error 9 where the frame isn't whole.
double FrameSum(const Bytes& bytes, std::size_t offset, std::size_t length);

/// Whether the checksum of the frame of `length` bytes at `offset` is its sum modulo 65536; error 9
/// where the frame isn't whole.
bool ChecksumHolds(const Bytes& bytes, std::size_t offset, std::size_t length);

/// As `ChecksumHolds`, but without the modulo: a sum above 65535 never passes. Some replies of one
/// word are checked so.
bool UnwrappedChecksumHolds(const Bytes& bytes, std::size_t offset, std::size_t length);

/// What is wrong with the reply to `command`; error 9 (subscript out of range) for an empty one.
ReplyFault CheckReply(const Bytes& reply, DeviceCommand command);

/// Whether `reply` has the length and the headers of `count` frames of `command`, back to back;
/// error 9 for an empty one.
bool HasFrames(const Bytes& reply, DeviceCommand command, std::size_t count = 1);

}  // namespace orbkl4
