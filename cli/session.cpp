#include "cli/session.h"

#include "base/arithmetic.h"
#include "cli/error.h"
#include "cli/reply.h"
#include "link/logic/requests.h"
#include "settings/logic/tick_interval.h"

#include <algorithm>
#include <optional>

namespace orbkl4::cli {

namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds replyTime = 1s;
constexpr auto longestNoise = 200ms;

}  // namespace

Reply Session::Ask(const Bytes& request) {
    const auto command = static_cast<DeviceCommand>(ByteAt(request, 0));
    Line& line = SerialLine();
    line.Discard();
    line.Send(request);
    const auto deadline = Clock::now() + replyTime;
    received_.clear();
    auto pauseEnds = deadline;
    while (line.Receive(received_, pauseEnds)) {
        const auto now = Clock::now();
        if (auto reply = ReplyIn(received_, command, true)) {
            return {Reply::Kind::Good, std::move(*reply), now};
        }
        pauseEnds = std::min(deadline, now + quietTime);
        if (now >= deadline) break;
    }
    if (auto reply = ReplyIn(received_, command, false)) {
        return {Reply::Kind::Good, std::move(*reply), Clock::now()};
    }
    return {received_.empty() ? Reply::Kind::None : Reply::Kind::Bad};
}

Bytes Session::Exchange(const Bytes& request) {
    constexpr int tries = 3;
    bool answered = false;
    bool lost = false;
    for (int attempt = 0; attempt < tries; ++attempt) {
        Reply reply = Ask(request);
        if (reply.kind == Reply::Kind::Good) {
            // A reply that was missed may come as late again, and must not be taken for that to the
            // next request.
            if (attempt > 0) AwaitQuiet(lost ? replyTime : quietTime);
            return std::move(reply.bytes);
        }
        AwaitQuiet(quietTime);
        (reply.kind == Reply::Kind::Bad ? answered : lost) = true;
    }
    const std::string sensor =
        "sensor " + std::to_string(SerialNumber()) + " on " + SerialLine().Name();
    if (answered) {
        throw CliError(Failure::BadAnswer, sensor + " answers badly",
                       "look for interference and loose plugs, see \"orb-kl4 doctor\"");
    }
    throw CliError(Failure::NoAnswer, sensor + " doesn't answer any more",
                   "check its power and its wiring");
}

int Session::ReadSerialNumber() {
    return static_cast<int>(WordAt(Exchange(Request(DeviceCommand::CmdSerialNumber)), 1));
}

int Session::ReadWord(eeprom::Address address) {
    return static_cast<int>(WordAt(Exchange(ReadEepromRequest(address)), 1));
}

void Session::WriteWord(eeprom::Address address, int word) {
    Exchange(WriteEepromRequest(address, word));
}

GainScales Session::ReadGainScales() {
    GainScales scales;
    scales.GyroGainScale = ReadWord(eeprom::gyroGainScale);
    scales.AccGainScale = ReadWord(eeprom::accGainScale);
    scales.MagGainScale = ReadWord(eeprom::magGainScale);
    return scales;
}

double Session::ReadTickInterval() {
    constexpr int decimals = 4;  // as fine as its unit, 100 ns
    const double prescaler = ReadWord(eeprom::timer2Prescaler);
    const double postscaler = ReadWord(eeprom::timer2Postscaler);
    const double compare = ReadWord(eeprom::timer2Compare);
    const double ticksInterval = ReadWord(eeprom::timerTicksInterval);
    return RoundTo(TickInterval(prescaler, postscaler, compare, ticksInterval), decimals);
}

Reply Session::TakeSample(const SamplePacket& packet, const GainScales& gainScales,
                          Sample& sample) {
    BuildRequest(request_, packet.command);
    Reply reply = Ask(request_);
    if (reply.kind == Reply::Kind::Good && !Decode(packet, reply.bytes, gainScales, sample)) {
        reply.kind = Reply::Kind::Bad;
    }
    return reply;
}

void Session::AwaitQuiet(std::chrono::milliseconds quiet) {
    const auto end = Clock::now() + std::max(longestNoise, quiet);
    Bytes dropped;
    while (SerialLine().Receive(dropped, std::min(end, Clock::now() + quiet)) &&
           Clock::now() < end) {
    }
}

}  // namespace orbkl4::cli
