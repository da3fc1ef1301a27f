#include "link/logic/write_replies.h"

#include "link/logic/frame_check.h"

namespace orbkl4 {

WriteVerdict CheckWriteReplies(const Bytes& replies, std::span<const bool> mustPass) {
    constexpr auto command = DeviceCommand::CmdWriteEeprom;
    constexpr std::size_t length = ReplyLength(command);
    if (!HasFrames(replies, command, mustPass.size())) return WriteVerdict::Malformed;
    for (std::size_t frame = 0; frame < mustPass.size(); ++frame) {
        if (mustPass[frame] && !ChecksumHolds(replies, frame * length, length))
            return WriteVerdict::BadChecksum;
    }
    return WriteVerdict::Good;
}

}  // namespace orbkl4
