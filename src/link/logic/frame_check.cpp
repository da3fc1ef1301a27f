#include "link/logic/frame_check.h"

#include "base/arithmetic.h"
#include "link/logic/words.h"

namespace orbkl4 {

namespace {

double ChecksumOf(const Bytes& bytes, std::size_t offset, std::size_t length) {
    return WordAt(bytes, offset + length - 2);
}

}  // namespace

double FrameSum(const Bytes& bytes, std::size_t offset, std::size_t length) {
    double sum = ByteAt(bytes, offset);
    for (std::size_t word = offset + 1; word + 2 < offset + length; word += 2)
        sum += WordAt(bytes, word);
    return sum;
}

bool ChecksumHolds(const Bytes& bytes, std::size_t offset, std::size_t length) {
    return ToInt32(FrameSum(bytes, offset, length)) % wordValues ==
           ChecksumOf(bytes, offset, length);
}

bool UnwrappedChecksumHolds(const Bytes& bytes, std::size_t offset, std::size_t length) {
    return FrameSum(bytes, offset, length) == ChecksumOf(bytes, offset, length);
}

ReplyFault CheckReply(const Bytes& reply, DeviceCommand command) {
    if (ByteAt(reply, 0) != ByteOf(command)) return ReplyFault::Header;
    if (reply.size() != ReplyLength(command)) return ReplyFault::Length;
    if (!ChecksumHolds(reply, 0, reply.size())) return ReplyFault::Checksum;
    return ReplyFault::None;
}

bool HasFrames(const Bytes& reply, DeviceCommand command, std::size_t count) {
    if (ByteAt(reply, 0) != ByteOf(command)) return false;
    const std::size_t length = ReplyLength(command);
    if (reply.size() != count * length) return false;
    for (std::size_t frame = 0; frame < count; ++frame)
        if (reply[frame * length] != ByteOf(command)) return false;
    return true;
}

}  // namespace orbkl4
