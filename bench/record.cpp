#include "bench/record.h"

#include "bench/process_cost.h"
#include "bench/raw_loop.h"
#include "simulator/simulator.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <stdexcept>
#include <vector>

namespace orbkl4::bench {

namespace {

/// The rows of a recording so far.
QList<QByteArray> RowsOf(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return {};
    QList<QByteArray> lines = file.readAll().split('\n');
    lines.removeFirst();  // the names
    if (!lines.isEmpty()) lines.removeLast();
    return lines;
}

/// What the program does on `device` in the midst of a recording, without what it takes to start.
LoopResult RecordLoop(const std::string& device, int baud, double seconds) {
    constexpr qsizetype warm = 20;
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("rows.csv"));
    QProcess process;
    process.start(QStringLiteral(CLI_PROGRAM),
                  {QStringLiteral("record"), QStringLiteral("vectors"), QStringLiteral("--device"),
                   QString::fromStdString(device), QStringLiteral("--baud"), QString::number(baud),
                   QStringLiteral("-o"), path});
    process.waitForStarted();
    while (RowsOf(path).size() < warm && process.state() == QProcess::Running)
        process.waitForFinished(1);
    const double before = CpuSecondsOf(process.processId());
    const qsizetype first = RowsOf(path).size();
    process.waitForFinished(static_cast<int>(seconds * 1e3));
    const qsizetype last = RowsOf(path).size();
    LoopResult result;
    result.cpuSeconds = CpuSecondsOf(process.processId()) - before;
    process.terminate();
    process.waitForFinished();
    const QList<QByteArray> rows = RowsOf(path);
    const auto time = [&](qsizetype row) { return rows.value(row).split(',').value(1).toDouble(); };
    result.samples = static_cast<double>(last - first);
    result.intervals = result.samples;
    result.seconds = time(last - 1) - time(first - 1);
    return result;
}

/// The raw loop on `device`, a process of its own as the recording is: beside the threads of the
/// simulated sensor it would be woken at less cost.
LoopResult RawProcess(const std::string& device, int baud, double seconds) {
    QProcess process;
    process.start(
        QStringLiteral(RAW_LOOP),
        {QString::fromStdString(device), QString::number(ByteOf(DeviceCommand::CmdGyroStabVectors)),
         QString::number(baud), QString::number(seconds)});
    if (!process.waitForFinished() || process.exitCode() != 0)
        throw std::runtime_error("the raw loop can't run on " + device);
    const QList<QByteArray> figures = process.readAllStandardOutput().split(' ');
    LoopResult result;
    result.samples = figures.value(0).toDouble();
    result.intervals = result.samples;
    result.seconds = figures.value(1).toDouble();
    result.cpuSeconds = figures.value(2).trimmed().toDouble();
    return result;
}

void Compare(Table& table, bool paced, int baud) {
    constexpr int turns = 9;
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
        raw = RawProcess(device, baud, seconds);
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
