#include "calibrate/logic/hard_iron.h"

#include "acquire/logic/packets.h"
#include "base/number_text.h"
#include "link/logic/frame_check.h"
#include "link/logic/requests.h"
#include "link/logic/words.h"

namespace orbkl4 {

namespace {

constexpr double milligaussPerGauss = 1000;

template <std::size_t count>
std::optional<HardIronReply<count>> Decoded(const Bytes& reply, double magGainScale) {
    constexpr std::size_t ticks = 1 + 2 * count;
    if (!ChecksumHolds(reply, 0, ticks + 4)) return std::nullopt;
    HardIronReply<count> numbers{.header = static_cast<double>(reply[0]),
                                 .ticks = WordAt(reply, ticks),
                                 .checksum = WordAt(reply, ticks + 2)};
    for (std::size_t i = 0; i < count; ++i)
        numbers.gauss[i] = ScaledWord(WordAt(reply, 1 + 2 * i), magGainScale);
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

std::optional<HardIronCollected> DecodeHardIronCollectReply(const Bytes& reply,
                                                            double magGainScale) {
    return Decoded<9>(reply, magGainScale);
}

std::optional<HardIronComputed> DecodeHardIronComputeReply(const Bytes& reply,
                                                           double magGainScale) {
    return Decoded<3>(reply, magGainScale);
}

}  // namespace orbkl4
