#include "bench/process_cost.h"

#include <QFile>
#include <QProcess>
#include <QThread>

#include <chrono>

namespace orbkl4::bench {

namespace {

QByteArray ReadProc(qint64 process, const char* leaf) {
    QFile file(QStringLiteral("/proc/%1/%2").arg(process).arg(QLatin1String(leaf)));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

constexpr double nanosecond = 1e-9;

/// Nanoseconds of processor time, exact where /proc/<pid>/stat would count in hundredths.
qint64 RunTime(qint64 process) {
    return ReadProc(process, "schedstat").split(' ').value(0).toLongLong();
}

/// Whether the process waits for something to happen; one that waits for a processor doesn't.
bool Sleeps(qint64 process) {
    const QByteArray stat = ReadProc(process, "stat");
    return stat.mid(stat.lastIndexOf(')') + 2, 1) == "S";
}

double ResidentBytes(qint64 process) {
    constexpr double pageSize = 4096;
    return ReadProc(process, "statm").split(' ').value(1).toDouble() * pageSize;
}

}  // namespace

double CpuSecondsOf(qint64 process) { return static_cast<double>(RunTime(process)) * nanosecond; }

ProcessCost CostOf(const std::string& program, const QStringList& arguments) {
    using Clock = std::chrono::steady_clock;
    constexpr auto idleFor = std::chrono::milliseconds(200);
    QProcess process;
    const auto start = Clock::now();
    process.start(QString::fromStdString(program), arguments);
    process.waitForStarted();
    const qint64 id = process.processId();
    auto lastChange = Clock::now();
    qint64 runTime = 0;
    for (; Clock::now() - lastChange < idleFor; QThread::usleep(500)) {
        const qint64 now = RunTime(id);
        if (now != runTime || !Sleeps(id)) lastChange = Clock::now();
        runTime = now;
    }
    const ProcessCost cost{
        .startSeconds = std::chrono::duration<double>(lastChange - start).count(),
        .processorSeconds = static_cast<double>(runTime) * nanosecond,
        .residentBytes = ResidentBytes(id),
    };
    process.kill();
    process.waitForFinished();
    return cost;
}

}  // namespace orbkl4::bench
