#include "link/logic/write_replies.h"

#include "link/logic/fault_texts.h"
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

std::string_view WriteVerdictText(WriteVerdict verdict, std::string_view succeeded,
                                  std::string_view badChecksum) {
    switch (verdict) {
        case WriteVerdict::Good: return succeeded;
        case WriteVerdict::BadChecksum: return badChecksum;
        case WriteVerdict::Malformed: break;
    }
    return malformedReplyText;
}

}  // namespace orbkl4
