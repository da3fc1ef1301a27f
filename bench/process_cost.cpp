#include "bench/process_cost.h"

#include <QFile>
#include <QProcess>
#include <QThread>

#include <chrono>

namespace orbkl4::bench {

namespace {

using Clock = std::chrono::steady_clock;

QByteArray ReadProc(qint64 process, const char* leaf) {
    QFile file(QStringLiteral("/proc/%1/%2").arg(process).arg(QLatin1String(leaf)));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Nanoseconds of processor time, exact where /proc/<pid>/stat would count in hundredths.
qint64 RunTime(qint64 process) {
    return ReadProc(process, "schedstat").split(' ').value(0).toLongLong();
}

double ResidentBytes(qint64 process) {
    constexpr double pageSize = 4096;
    return ReadProc(process, "statm").split(' ').value(1).toDouble() * pageSize;
}

}  // namespace

ProcessCost CostOf(const std::string& program) {
    constexpr auto idleFor = std::chrono::milliseconds(200);
    QProcess process;
    const auto start = Clock::now();
    process.start(QString::fromStdString(program), {});
    process.waitForStarted();
    auto lastChange = Clock::now();
    for (qint64 runTime = 0; Clock::now() - lastChange < idleFor; QThread::usleep(500)) {
        const qint64 now = RunTime(process.processId());
        if (now != runTime) lastChange = Clock::now();
        runTime = now;
    }
    const ProcessCost cost{std::chrono::duration<double>(lastChange - start).count(),
                           ResidentBytes(process.processId())};
    process.kill();
    process.waitForFinished();
    return cost;
}

}  // namespace orbkl4::bench
