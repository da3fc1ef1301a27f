#include "cli/link_health.h"

#include "base/arithmetic.h"
#include "cli/error.h"
#include "cli/session.h"
#include "link/logic/requests.h"

#include <algorithm>
#include <cmath>

namespace orbkl4::cli {

namespace {

using namespace std::chrono_literals;
using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr auto probe = DeviceCommand::CmdFirmwareVersion;
constexpr int fullRun = 300;
constexpr auto longestRun = 10s;

// An adapter at its quickest adds one or two milliseconds, one that collects bytes up to 16.
constexpr double longestDelay = 5;
constexpr double longestStray = 40;

double WireTime(const Bytes& request, int baud) {
    constexpr double bitsPerByte = 10;
    constexpr double millisecondsPerSecond = 1000;
    const auto bytes = static_cast<double>(request.size() + ReplyLength(probe));
    return bytes * bitsPerByte * millisecondsPerSecond / baud;
}

/// Counts one round trip in `health`, and its time in `times` if its reply is good.
void Count(const Reply& reply, Clock::time_point sent, LinkHealth& health,
           std::vector<double>& times) {
    ++health.roundTrips;
    switch (reply.kind) {
        case Reply::Kind::Good:
            times.push_back(Milliseconds(reply.received - sent).count());
            return;
        case Reply::Kind::Bad: ++health.badReplies; return;
        case Reply::Kind::None: ++health.timeouts; return;
    }
}

std::string Number(double value) {
    std::string text = std::to_string(RoundTo(value, 1));
    return text.substr(0, text.find('.') + 2);
}

std::string DelayAdvice(const LinkHealth& health, const std::string& device) {
    const std::string added =
        "Each reply comes " + Number(health.AdapterDelay()) + " ms later than the line needs";
    if (health.lowLatency == false) {
        return added + ": set the adapter's low-latency flag with \"setserial " + device +
               " low_latency\", or use an adapter whose driver has it.";
    }
    return added + ": use another adapter, or plug it in without a hub.";
}

}  // namespace

double LinkHealth::AdapterDelay() const { return std::max(0.0, median - wire); }

double Quantile(std::vector<double> times, double rank) {
    if (times.empty()) return 0;
    std::ranges::sort(times);
    const double position = std::ceil(rank * static_cast<double>(times.size()));
    return times.at(static_cast<std::size_t>(std::max(position, 1.0)) - 1);
}

LinkHealth MeasureLink(Session& session) {
    constexpr double millisecondsPerSecond = 1000;
    const Bytes request = Request(probe);
    LinkHealth health{.wire = WireTime(request, session.SerialLine().Baud())};
    health.limitPerSecond = millisecondsPerSecond / health.wire;
    health.lowLatency = HasLowLatency(session.SerialLine().Handle());
    health.continuousMode = session.ReadWord(eeprom::continuousMode) != 0;
    std::vector<double> times;
    const auto start = Clock::now();
    while (health.roundTrips < fullRun && Clock::now() - start < longestRun) {
        const auto sent = Clock::now();
        const Reply reply = session.Ask(request);
        Count(reply, sent, health, times);
        if (reply.kind != Reply::Kind::Good) session.AwaitQuiet();
    }
    const double seconds = std::chrono::duration<double>(Clock::now() - start).count();
    health.ratePerSecond = static_cast<double>(times.size()) / seconds;
    constexpr double nearlyAll = 0.99;
    health.p99 = Quantile(times, nearlyAll);
    health.median = Quantile(std::move(times), 0.5);
    return health;
}

std::vector<std::string> AdviceOn(const LinkHealth& health, const std::string& device) {
    std::vector<std::string> advice;
    const std::string of = " of " + std::to_string(health.roundTrips) + " ";
    if (health.continuousMode) {
        advice.emplace_back(
            "The sensor is in continuous mode, and its samples share the line: set it to polled "
            "mode with \"orb-kl4 memory set 132=0\" and measure again.");
    }
    if (health.badReplies > 0) {
        advice.push_back(std::to_string(health.badReplies) + of +
                         "replies were damaged: look at plugs, cable length, shield and ground, "
                         "or choose a lower speed.");
    }
    if (health.timeouts > 0) {
        advice.push_back(std::to_string(health.timeouts) + of +
                         "requests had no reply: look at the sensor's power and its wiring.");
    }
    if (health.AdapterDelay() > longestDelay) advice.push_back(DelayAdvice(health, device));
    if (health.p99 - health.median > longestStray) {
        advice.push_back("One reply in a hundred takes " + Number(health.p99) +
                         " ms or more: see what else keeps this computer or the adapter's hub "
                         "busy.");
    }
    return advice;
}

}  // namespace orbkl4::cli
