#include "link/logic/fault_texts.h"

#include <array>

namespace orbkl4 {

namespace {

struct FaultWording {
    DeviceCommand command;
    std::string_view header, length, checksum;
};

constexpr auto wordings = std::to_array<FaultWording>({
    {DeviceCommand::CmdReadEeprom, "Read EEPROM Error: header is not 0x28!",
     "Read EEPROM Error: packet length is <> 7 bytes!", "Read EEPROM Error: checksum failed!"},
    {DeviceCommand::CmdReadSystemGains, "Header is not 0x25!", "Packet length is <> 11 bytes!",
     "Checksum failed!"},
    {DeviceCommand::CmdWriteSystemGains, "Header is not 0x24!", "Packet length is <> 5 bytes!",
     "Checksum failed!"},
});

std::string_view Wording(const FaultWording& wording, ReplyFault fault) {
    switch (fault) {
        case ReplyFault::Header: return wording.header;
        case ReplyFault::Length: return wording.length;
        case ReplyFault::Checksum: return wording.checksum;
        case ReplyFault::None: break;
    }
    return {};
}

}  // namespace

std::string RetryText(DeviceCommand command, ReplyFault fault) {
    for (const FaultWording& wording : wordings)
        if (wording.command == command && fault != ReplyFault::None)
            return std::string(Wording(wording, fault)) +
                   " Click Retry to attempt re-read or Cancel to skip over.";
    return {};
}

}  // namespace orbkl4
