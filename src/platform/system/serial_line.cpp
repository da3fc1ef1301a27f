#include "platform/system/serial_line.h"

#include "base/run_time_error.h"
#include "platform/system/port_device.h"

#include <QDeadlineTimer>
#include <QList>
#include <QPointer>
#include <QThread>

#include <algorithm>
#include <chrono>
#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>
#ifdef Q_OS_LINUX
#include <linux/serial.h>
#endif

namespace orbkl4 {

namespace {

using Clock = std::chrono::steady_clock;

constexpr int bitsPerByte = 10;  // start bit, 8 data bits, stop bit

int HandleOf(const QSerialPort& line) { return static_cast<int>(line.handle()); }

/// Makes a USB adapter deliver each reply at once instead of after up to 16 ms. Drivers without
/// this flag refuse, which does no harm.
void SetLowLatency([[maybe_unused]] int handle) {
#ifdef Q_OS_LINUX
    serial_struct serial{};
    if (::ioctl(handle, TIOCGSERIAL, &serial) != 0) return;
    serial.flags |= ASYNC_LOW_LATENCY;
    ::ioctl(handle, TIOCSSERIAL, &serial);
#endif
}

int UnsentBytes(int handle) {
    int count = 0;
    return ::ioctl(handle, TIOCOUTQ, &count) == 0 ? count : 0;
}

/// The lines that this process has opened, closed ones among them; null once destroyed.
QList<QPointer<const QSerialPort>>& LinesOpened() {
    static QList<QPointer<const QSerialPort>> lines;
    return lines;
}

void Remember(const QSerialPort& line) {
    LinesOpened().removeAll(nullptr);
    if (!LinesOpened().contains(&line)) LinesOpened() += &line;
}

bool IsOpenHere(const QSerialPort& line) {
    return std::ranges::any_of(LinesOpened(), [&](const QPointer<const QSerialPort>& other) {
        return other && other->isOpen() && other->portName() == line.portName();
    });
}

void RequireUse(const PortDevice& device, const std::string& port) {
    if (!device.present) {
        Raise(ErrorNumber::InvalidPortNumber,
              "Invalid port number: there is no serial line at " + port);
    }
    if (!device.permitted) {
        Raise(ErrorNumber::PermissionDenied,
              "Permission denied: " + port + ". " + PermissionHint(device).toStdString());
    }
}

void Apply(QSerialPort& line, const LineSettings& settings) {
    line.setBaudRate(settings.baud);
    line.setParity(settings.parity);
    line.setDataBits(settings.dataBits);
    line.setStopBits(settings.stopBits);
    line.setFlowControl(QSerialPort::NoFlowControl);
}

[[noreturn]] void RaiseOpenError(const QSerialPort& line, const std::string& port) {
    if (line.error() == QSerialPort::PermissionError) {
        Raise(ErrorNumber::PortAlreadyOpen, "Port in use: " + port + " is held by another program");
    }
    Raise(ErrorNumber::InvalidPortNumber,
          "Invalid port number: " + port + " can't be opened, " + line.errorString().toStdString());
}

}  // namespace

std::string PortText(int number, const QString& device) {
    const std::string port = "port " + std::to_string(number);
    return device.isEmpty() ? port : port + " (" + device.toStdString() + ")";
}

void OpenLine(QSerialPort& line, const PortDevice& device, const std::string& port,
              const LineSettings& settings) {
    RequireUse(device, port);
    line.setPortName(device.name);
    if (IsOpenHere(line)) {
        Raise(ErrorNumber::PortAlreadyOpen,
              "Port in use: " + port + " is open in this program already");
    }
    Apply(line, settings);
    if (!line.open(QIODevice::ReadWrite)) RaiseOpenError(line, port);
    Remember(line);
    SetLowLatency(HandleOf(line));
    line.clear(QSerialPort::Input);
}

bool LineIsDead(const QSerialPort& line) {
    termios settings{};
    return HandleOf(line) < 0 || ::tcgetattr(HandleOf(line), &settings) != 0;
}

bool HasSomethingToRead(const QSerialPort& line) {
    pollfd entry{.fd = HandleOf(line), .events = POLLIN, .revents = 0};
    return ::poll(&entry, 1, 0) != 0;
}

void SendAtOnce(QSerialPort& line, const Bytes& bytes) {
    // Straight to the system, as QSerialPort's own write would wake the event loop twice more for
    // each request. QSerialPort takes what the line has no room for, and reports a dead line.
    const auto* data = reinterpret_cast<const char*>(bytes.data());
    const auto count = static_cast<qint64>(bytes.size());
    const bool inOrder = line.bytesToWrite() == 0;
    const qint64 sent =
        inOrder ? std::max<qint64>(::write(HandleOf(line), data, bytes.size()), 0) : 0;
    if (sent == count) return;
    line.write(data + sent, count - sent);
    line.flush();
}

Clock::time_point SentAt(int baud, std::size_t count, Clock::time_point before) {
    const std::chrono::microseconds time(qint64{1'000'000} * bitsPerByte *
                                         static_cast<qint64>(count) / baud);
    return std::max(before, Clock::now()) + time;
}

void AwaitSent(QSerialPort& line, Clock::time_point sent) {
    constexpr unsigned long pollMicroseconds = 100;
    line.flush();
    if (LineIsDead(line)) return;
    while (Clock::now() < sent) QThread::usleep(pollMicroseconds);
    const QDeadlineTimer grace(std::chrono::milliseconds(5), Qt::PreciseTimer);
    while (UnsentBytes(HandleOf(line)) > 0 && !grace.hasExpired()) {
        QThread::usleep(pollMicroseconds);
    }
}

}  // namespace orbkl4
