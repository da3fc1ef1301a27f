#include "bench/qt_port_loop.h"

#include <QEventLoop>
#include <QSerialPort>
#include <QTimer>

#include <chrono>

namespace orbkl4::bench {

LoopResult QtPortLoop(const std::string& device, DeviceCommand command, int baud, double seconds) {
    using Clock = std::chrono::steady_clock;
    const auto length = static_cast<qint64>(ReplyLength(command));
    const auto request = static_cast<char>(ByteOf(command));
    QSerialPort port;
    port.setPortName(QString::fromStdString(device));
    port.setBaudRate(baud);
    port.open(QIODevice::ReadWrite);
    LoopResult result;
    const auto ask = [&] {
        port.write(&request, 1);
        port.flush();
    };
    QObject::connect(&port, &QSerialPort::readyRead, &port, [&] {
        if (port.bytesAvailable() < length) return;
        port.readAll();
        result.samples += 1;
        ask();
    });
    QEventLoop loop;
    QTimer::singleShot(static_cast<int>(seconds * 1000), &loop, &QEventLoop::quit);
    const double cpuBefore = ThreadCpuSeconds();
    const auto start = Clock::now();
    ask();
    loop.exec();
    result.seconds = std::chrono::duration<double>(Clock::now() - start).count();
    result.cpuSeconds = ThreadCpuSeconds() - cpuBefore;
    result.intervals = result.samples;
    return result;
}

}  // namespace orbkl4::bench
