#include "calibrate/logic/hard_iron.h"

#include "base/arithmetic.h"
#include "base/number_text.h"
#include "link/logic/frame_check.h"
#include "link/logic/requests.h"
#include "link/logic/words.h"
#include "state/app_state.h"

namespace orbkl4 {

namespace {

constexpr double milligaussPerGauss = 1000;
constexpr double gainDivisor = 32768000;  // 32768 times 1000

template <std::size_t count>
std::optional<HardIronReply<count>> Decoded(const Bytes& reply) {
    constexpr std::size_t ticks = 1 + 2 * count;
    if (!ChecksumHolds(reply, 0, ticks + 4)) return std::nullopt;
    HardIronReply<count> numbers{.header = static_cast<double>(reply[0]),
                                 .ticks = WordAt(reply, ticks),
                                 .checksum = WordAt(reply, ticks + 2)};
    for (std::size_t i = 0; i < count; ++i) numbers.gauss[i] = GaussOf(WordAt(reply, 1 + 2 * i));
    return numbers;
}

}  // namespace

bool RefusesHardIron(std::string_view firmwareText) { return LeadingNumber(firmwareText) < 3.1; }

bool IsBelowHardIronFirmware(double firmwareNumber) { return firmwareNumber < 3100; }

Bytes HardIronComputeRequest(std::string_view type, double magnitude) {
    const double word = ToUnsigned16(magnitude * milligaussPerGauss);
    return Request(DeviceCommand::CmdHardIronCompute,
                   {static_cast<std::uint8_t>(type == twoDimensional ? 1 : 0), ValueToMSB(word),
                    ValueToLSB(word)});
}

double GaussOf(double word) {
    return RoundTo(ToSigned16(word) * AppState.MagGainScale / gainDivisor, 4);
}

bool CheckHardIronInitReply() {
    const Bytes& reply = AppState.CommandBytes;
    return ChecksumHolds(reply, 0, ReplyLength(DeviceCommand::CmdHardIronInit));
}

std::optional<HardIronCollected> DecodeHardIronCollectReply() {
    return Decoded<9>(AppState.CommandBytes);
}

std::optional<HardIronComputed> DecodeHardIronComputeReply() {
    return Decoded<3>(AppState.CommandBytes);
}

}  // namespace orbkl4
