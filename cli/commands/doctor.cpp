#include "base/arithmetic.h"
#include "cli/commands/command.h"
#include "cli/link_health.h"
#include "cli/session.h"

#include <CLI/CLI.hpp>
#include <QJsonArray>

#include <array>
#include <string>
#include <vector>

namespace orbkl4::cli {

namespace {

using Advice = std::vector<std::string>;

/// `value` with the three decimals that the clock of a computer is good for.
double Rounded(double value) { return RoundTo(value, 3); }

double RoundedRate(double value) { return RoundTo(value, 1); }

QJsonObject Document(const LinkHealth& health, const Advice& advice) {
    QJsonArray sentences;
    for (const std::string& sentence : advice) sentences.append(QString::fromStdString(sentence));
    return {{"roundTrips", health.roundTrips},
            {"median_ms", Rounded(health.median)},
            {"p99_ms", Rounded(health.p99)},
            {"wire_ms", Rounded(health.wire)},
            {"adapterDelay_ms", Rounded(health.AdapterDelay())},
            {"badReplies", health.badReplies},
            {"timeouts", health.timeouts},
            {"rate_per_s", RoundedRate(health.ratePerSecond)},
            {"limit_per_s", RoundedRate(health.limitPerSecond)},
            {"advice", sentences}};
}

Cell Time(double value) { return QStringLiteral("%1 ms").arg(Rounded(value)); }

Cell Rate(double value) { return QStringLiteral("%1 a second").arg(RoundedRate(value)); }

Cell Faults(int count) { return {QString::number(count), count == 0 ? Colour::Good : Colour::Bad}; }

const char* FlagText(const LinkHealth& health) {
    if (!health.lowLatency) return "the driver has no such flag";
    return *health.lowLatency ? "set" : "not set";
}

Table Listing(const LinkHealth& health, const Line& line) {
    return {.heading = {},
            .rows = {{"Device", line.Name()},
                     {"Speed", QStringLiteral("%1 baud").arg(line.Baud())},
                     {"Round trips", QString::number(health.roundTrips)},
                     {"Median", Time(health.median)},
                     {"99 of 100 within", Time(health.p99)},
                     {"The line needs", Time(health.wire)},
                     {"The adapter adds", Time(health.AdapterDelay())},
                     {"Low-latency flag", FlagText(health)},
                     {"Bad replies", Faults(health.badReplies)},
                     {"Time-outs", Faults(health.timeouts)},
                     {"Rate reached", Rate(health.ratePerSecond)},
                     {"Rate possible", Rate(health.limitPerSecond)}}};
}

QString InWords(const Advice& advice) {
    if (advice.empty()) return QStringLiteral("The line is well.\n");
    QString text;
    for (const std::string& sentence : advice) text += QString::fromStdString(sentence) + u'\n';
    return text;
}

ExitCode Examine(const Context& context) {
    Session session(context.options.sensor);
    const Line& line = session.SerialLine();
    const LinkHealth health = MeasureLink(session);
    const Advice advice = AdviceOn(health, line.Name());
    context.output.Show("orb-kl4 doctor", Document(health, advice), Listing(health, line));
    if (!context.output.Json()) context.output.Print(InWords(advice));
    return advice.empty() ? ExitCode::Done : ExitCode::No;
}

}  // namespace

Action SetUpDoctor(CLI::App& /*app*/) { return Examine; }

}  // namespace orbkl4::cli
