#include "bench/record.h"

#include "bench/raw_loop.h"
#include "simulator/simulator.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <sys/resource.h>
#include <vector>

namespace orbkl4::bench {

namespace {

/// Processor seconds of all processes that have been started and have ended.
double EndedCpuSeconds() {
    rusage usage{};
    ::getrusage(RUSAGE_CHILDREN, &usage);
    const auto seconds = [](const timeval& time) {
        constexpr double microsecond = 1e-6;
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * microsecond;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

/// Runs the program on `device` up to the limit that `option` sets.
LoopResult RunRecord(const std::string& device, int baud, const QString& option) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("rows.csv"));
    const double before = EndedCpuSeconds();
    QProcess process;
    process.start(QStringLiteral(CLI_PROGRAM),
                  {QStringLiteral("record"), QStringLiteral("vectors"), QStringLiteral("--device"),
                   QString::fromStdString(device), QStringLiteral("--baud"), QString::number(baud),
                   QStringLiteral("-o"), path, option});
    process.waitForFinished(-1);
    LoopResult result;
    result.cpuSeconds = EndedCpuSeconds() - before;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return result;
    const QList<QByteArray> lines = file.readAll().trimmed().split('\n');
    const auto time = [&](const QByteArray& line) { return line.split(',').value(1).toDouble(); };
    result.samples = static_cast<double>(lines.size() - 1);
    result.intervals = result.samples - 1;
    result.seconds = time(lines.last()) - time(lines.value(1));
    return result;
}

/// The program's sampling without what it takes to start and to find the sensor.
LoopResult RecordLoop(const std::string& device, int baud, double seconds) {
    const double startCpu = RunRecord(device, baud, QStringLiteral("--samples=1")).cpuSeconds;
    LoopResult result = RunRecord(device, baud, QStringLiteral("--seconds=%1").arg(seconds));
    result.cpuSeconds -= startCpu;
    return result;
}

void Compare(Table& table, bool paced, int baud) {
    constexpr int turns = 3;
    constexpr double seconds = 1.5;
    constexpr double microseconds = 1e6;
    orbkl4sim::SimulatorOptions options;
    options.paced = paced;
    options.baud = baud;
    options.record = false;
    orbkl4sim::Simulator sensor(options);
    sensor.Start();
    for (const int address : {238, 240, 242, 246}) sensor.SetWord(address, 1);
    sensor.PowerCycle();  // the calculation cycle holds no reply back
    const std::string device = sensor.DevicePath().string();
    std::vector<double> rates;
    std::vector<double> costs;
    LoopResult ours;
    LoopResult raw;
    for (int turn = 0; turn < turns; ++turn) {
        ours = RecordLoop(device, baud, seconds);
        raw = RawLoop(device, DeviceCommand::CmdGyroStabVectors, baud, seconds);
        rates.push_back(ours.Rate() / raw.Rate());
        costs.push_back(ours.CpuPerSample() / raw.CpuPerSample());
    }
    const std::string where = paced ? " at " + std::to_string(baud) : ", unpaced";
    table.Add("record, rate / raw loop" + where, Figure(ours.Rate(), "/s"),
              Figure(raw.Rate(), "/s"), Median(rates), AtLeast(paced ? 0.98 : 0.7));
    table.Add("record, processor / raw loop" + where,
              Figure(ours.CpuPerSample() * microseconds, "us"),
              Figure(raw.CpuPerSample() * microseconds, "us"), Median(costs), AtMost(2));
}

}  // namespace

void MeasureRecord(Table& table) {
    constexpr int fastest = 115200;
    for (const int baud : {19200, 38400, fastest}) Compare(table, true, baud);
    Compare(table, false, fastest);
}

}  // namespace orbkl4::bench
