#include "link/logic/identity.h"

#include "base/number_text.h"
#include "link/logic/eeprom_address.h"
#include "link/logic/frame_check.h"
#include "link/logic/requests.h"

namespace orbkl4 {

namespace {

constexpr double unsetScale = 65535;

// Offsets of the five replies, two of 5 bytes and three of 7, which are read together.
constexpr std::size_t firmwareReply = 0;
constexpr std::size_t serialReply = 5;
constexpr std::size_t gyroScaleReply = 10;
constexpr std::size_t accScaleReply = 17;
constexpr std::size_t magScaleReply = 24;
constexpr std::size_t identityLength = 31;

}  // namespace

bool IsFirmwareReply(const Bytes& reply) {
    return !reply.empty() && HasFrames(reply, DeviceCommand::CmdFirmwareVersion) &&
           UnwrappedChecksumHolds(reply, 0, reply.size());
}

std::array<Bytes, 5> IdentityRequests() {
    return {Request(DeviceCommand::CmdFirmwareVersion), Request(DeviceCommand::CmdSerialNumber),
            ReadEepromRequest(eeprom::gyroGainScale), ReadEepromRequest(eeprom::accGainScale),
            ReadEepromRequest(eeprom::magGainScale)};
}

std::optional<DeviceIdentity> ParseIdentity(const Bytes& replies) {
    if (replies.size() != identityLength) return std::nullopt;
    // One of the two headers is enough.
    if (replies[firmwareReply] != ByteOf(DeviceCommand::CmdFirmwareVersion) &&
        replies[serialReply] != ByteOf(DeviceCommand::CmdSerialNumber))
        return std::nullopt;
    const double firmware = WordAt(replies, firmwareReply + 1);
    return DeviceIdentity{{.FirmwareText = FirmwareText(firmware),
                           .FirmwareNumber = firmware,
                           .SerialNumber = WordAt(replies, serialReply + 1)},
                          {.GyroGainScale = WordAt(replies, gyroScaleReply + 1),
                           .AccGainScale = WordAt(replies, accScaleReply + 1),
                           .MagGainScale = WordAt(replies, magScaleReply + 1)}};
}

std::string FirmwareText(double number) {
    const std::string digits = ScreenText(number);
    const std::size_t major = digits.size() == 5 ? 2 : 1;
    const std::string rest = digits.size() > major ? digits.substr(major) : "";
    return digits.substr(0, major) + "." + rest.substr(0, 1) + "." +
           (rest.size() > 1 ? rest.substr(1) : "");
}

std::vector<std::string_view> GainScaleWarnings(const GainScales& scales) {
    struct Warning {
        double scale;
        std::string_view text;
    };
    std::vector<std::string_view> warnings;
    for (const Warning& warning : {
             Warning{scales.GyroGainScale,
                     "Gyro Gain Scale has not been initialized! Program performance may be "
                     "affected."},
             Warning{scales.AccGainScale,
                     "Acc Gain Scale has not been initialized! Program performance may be "
                     "affected."},
             Warning{scales.MagGainScale,
                     "Mag Gain Scale has not been initialized! Program performance may be "
                     "affected."},
         })
        if (warning.scale == unsetScale) warnings.push_back(warning.text);
    return warnings;
}

}  // namespace orbkl4
