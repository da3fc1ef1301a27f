#include "bench/commands.h"

#include "link/logic/requests.h"
#include "simulator/port_link.h"
#include "simulator/simulator.h"

#include <QProcess>
#include <QTemporaryDir>

#include <chrono>
#include <memory>
#include <optional>
#include <vector>

namespace orbkl4::bench {

namespace {

constexpr int sensorBaud = 38400;

orbkl4sim::SimulatorOptions Options() {
    orbkl4sim::SimulatorOptions options;
    options.baud = sensorBaud;
    options.record = false;
    return options;
}

/// The median time in seconds of `arguments`; none where the program doesn't end with 0.
std::optional<double> SecondsOf(const QStringList& arguments) {
    constexpr int turns = 5;
    using Clock = std::chrono::steady_clock;
    std::vector<double> times;
    for (int turn = 0; turn < turns; ++turn) {
        const auto start = Clock::now();
        QProcess process;
        process.setStandardOutputFile(QProcess::nullDevice());
        process.start(QStringLiteral(CLI_PROGRAM), arguments);
        process.waitForFinished(-1);
        if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) return {};
        times.push_back(std::chrono::duration<double>(Clock::now() - start).count());
    }
    return Median(times);
}

/// `options` on the line of `sensor`, whose speed is known.
QStringList On(const orbkl4sim::Simulator& sensor, const QStringList& options) {
    return QStringList{QStringLiteral("--device"),
                       QString::fromStdString(sensor.DevicePath().string()),
                       QStringLiteral("--baud"), QString::number(sensorBaud)} +
           options;
}

void MeasureInfo(Table& table) {
    constexpr double aim = 0.15;
    orbkl4sim::Simulator sensor(Options());
    sensor.Start();
    const auto seconds = SecondsOf(On(sensor, {QStringLiteral("info")}));
    table.Add("orb-kl4 info, line and speed given", Figure(seconds.value_or(0), "s"), "",
              seconds.value_or(aim * 2), AtMost(aim));
}

void MeasureProbe(Table& table) {
    constexpr double aim = 2;
    const QTemporaryDir config;
    qputenv("XDG_CONFIG_HOME", config.path().toLocal8Bit());
    std::vector<std::unique_ptr<orbkl4sim::Simulator>> sensors;
    constexpr int lastPort = 16;
    for (int port = 1; port <= lastPort; ++port) {
        auto& sensor = sensors.emplace_back(std::make_unique<orbkl4sim::Simulator>(Options()));
        sensor->LinkAsPort(port);
        sensor->Start();
        sensor->SetSilent(true);
    }
    const auto seconds = SecondsOf({QStringLiteral("ports"), QStringLiteral("--probe")});
    table.Add("orb-kl4 ports --probe, 16 silent lines", Figure(seconds.value_or(0), "s"), "",
              seconds.value_or(aim * 2), AtMost(aim));
}

/// Left out where the program has no such command.
void MeasureMemory(Table& table) {
    constexpr int words = 128;
    constexpr double bitsPerByte = 10;
    const auto bytes = static_cast<double>(ReadEepromRequest(0).size() +
                                           ReplyLength(DeviceCommand::CmdReadEeprom));
    const double wire = words * bytes * bitsPerByte / sensorBaud;
    orbkl4sim::Simulator sensor(Options());
    sensor.Start();
    const QTemporaryDir folder;
    const auto seconds = SecondsOf(On(sensor, {QStringLiteral("memory"), QStringLiteral("save"),
                                               folder.filePath(QStringLiteral("memory.json"))}));
    if (!seconds) return;
    table.Add("orb-kl4 memory save / wire at 38400", Figure(*seconds, "s"), Figure(wire, "s"),
              *seconds / wire, AtMost(1.3));
}

}  // namespace

void MeasureCommands(Table& table) {
    MeasureInfo(table);
    MeasureProbe(table);
    MeasureMemory(table);
}

}  // namespace orbkl4::bench
