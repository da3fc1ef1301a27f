// Any bytes as the reply to any data command, against the oracle of plain arithmetic. The first
// byte chooses the command, the next six the gain scales, and one whether the checksum is mended,
// so that the search gets past the frame check.

#include "base/run_time_error.h"
#include "link/logic/frame_check.h"
#include "state/app_state.h"
#include "state/sample_state.h"
#include "support/frames.h"
#include "support/logic/decoder_oracle.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace orbkl4 {
namespace {

constexpr std::size_t choices = 8;

[[noreturn]] void Fail(const std::string& fault) {
    std::fprintf(stderr, "%s\n", fault.c_str());
    std::abort();
}

void CheckDecoder(const DecoderRow& row, Bytes packet, bool mend) {
    const std::size_t length = 5 + 2 * row.kinds.size();
    if (packet.size() != length) {  // no caller lets it through, and yet nothing may break
        AppState.CommandBytes = packet;
        if (packet.size() < length && row.decode()) Fail("a torn packet is good");
        return;
    }
    packet[0] = static_cast<std::uint8_t>(row.command);
    if (mend) MendChecksum(packet);
    if (const std::string fault = FaultOfDecoder(row, packet); !fault.empty()) Fail(fault);
}

void CheckFrames(const DecoderRow& row, const Bytes& reply) {
    const auto command = static_cast<DeviceCommand>(row.command);
    try {
        const bool whole = HasFrames(reply, command);
        const ReplyFault fault = CheckReply(reply, command);
        if (whole != (fault == ReplyFault::None || fault == ReplyFault::Checksum))
            Fail("two verdicts on one reply");
    } catch (const RuntimeError& error) {
        if (!reply.empty() || error.Number() != ErrorNumber::SubscriptOutOfRange) throw;
    }
}

}  // namespace
}  // namespace orbkl4

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace orbkl4;
    if (size < choices) return 0;
    const DecoderRow& row = DecoderRows()[data[0] % DecoderRows().size()];
    AppState.MagGainScale = data[1] * 256 + data[2];
    AppState.AccGainScale = data[3] * 256 + data[4];
    AppState.GyroGainScale = data[5] * 256 + data[6];
    const Bytes reply(data + choices, data + size);
    CheckFrames(row, reply);
    CheckDecoder(row, reply, data[7] % 2 == 0);
    return 0;
}
