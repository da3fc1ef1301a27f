#include "platform/events/mscomm.h"

#include "base/run_time_error.h"
#include "platform/system/line_settings.h"
#include "platform/system/port_device.h"

#include <QThread>

#include <algorithm>
#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>
#ifdef Q_OS_LINUX
#include <linux/serial.h>
#endif

namespace orbkl4 {

namespace {

constexpr std::size_t receiveBufferSize = 32767;
constexpr int bitsPerByte = 10;  // start bit, 8 data bits, stop bit

std::string PortText(int number, const QString& name) {
    const std::string port = "port " + std::to_string(number);
    return name.isEmpty() ? port : port + " (" + name.toStdString() + ")";
}

bool LineIsDead(int handle) {
    termios settings{};
    return handle < 0 || ::tcgetattr(handle, &settings) != 0;
}

/// Lets a USB adapter hand over each reply at once instead of after up to 16 ms; drivers that know
/// no such flag refuse, which does no harm.
void SetLowLatency([[maybe_unused]] int handle) {
#ifdef Q_OS_LINUX
    serial_struct serial{};
    if (::ioctl(handle, TIOCGSERIAL, &serial) != 0) return;
    serial.flags |= ASYNC_LOW_LATENCY;
    ::ioctl(handle, TIOCSSERIAL, &serial);
#endif
}

/// Whether a read would find bytes or an error.
bool HasSomethingToRead(int handle) {
    pollfd line{.fd = handle, .events = POLLIN, .revents = 0};
    return ::poll(&line, 1, 0) != 0;
}

int UnsentBytes(int handle) {
    int count = 0;
    return ::ioctl(handle, TIOCOUTQ, &count) == 0 ? count : 0;
}

[[noreturn]] void RaiseOpenError(QSerialPort::SerialPortError error, const std::string& port,
                                 const QString& description) {
    if (error == QSerialPort::PermissionError) {
        Raise(ErrorNumber::PortAlreadyOpen, "Port in use: " + port + " is held by another program");
    }
    Raise(ErrorNumber::InvalidPortNumber,
          "Invalid port number: " + port + " can't be opened, " + description.toStdString());
}

}  // namespace

MSComm::MSComm(QObject* screen, const char* name) : QObject(screen) {
    setObjectName(QLatin1String(name));
    connect(&line_, &QSerialPort::readyRead, this, [this] {
        if (reading_) return;
        TakeIn();
        EventGate::Instance().Offer(*this);
    });
    connect(&line_, &QSerialPort::errorOccurred, this, &MSComm::OnLineError);
}

MSComm::~MSComm() {
    if (open_) CloseLine();
}

void MSComm::CommPort(std::int16_t number) {
    if (open_) {
        Raise(ErrorNumber::PortAlreadyOpen, "The port number can't be changed on an open port");
    }
    commPort_ = number;
}

void MSComm::Settings(const std::string& settings) {
    ParseLineSettings(settings);
    settings_ = settings;
}

void MSComm::PortOpen(bool open) {
    if (!open) {
        if (open_) CloseLine();
        return;
    }
    if (open_) Raise(ErrorNumber::PortAlreadyOpen);
    OpenLine();
}

void MSComm::OpenLine() {
    const PortDevice device = DeviceOfPort(commPort_);
    const std::string port = PortText(commPort_, device.name);
    if (!device.present) {
        Raise(ErrorNumber::InvalidPortNumber,
              "Invalid port number: there is no serial line at " + port);
    }
    if (!device.permitted) {
        Raise(ErrorNumber::PermissionDenied,
              "Permission denied: " + port + ". " + PermissionHint(device).toStdString());
    }
    line_.setPortName(device.name);
    ApplySettings();
    if (!line_.open(QIODevice::ReadWrite)) {
        RaiseOpenError(line_.error(), port, line_.errorString());
    }
    SetLowLatency(line_.handle());
    line_.clear(QSerialPort::Input);
    received_.clear();
    sent_ = QDeadlineTimer(0);
    gone_ = false;
    open_ = true;
}

void MSComm::ApplySettings() {
    const LineSettings settings = ParseLineSettings(settings_);
    line_.setBaudRate(settings.baud);
    line_.setParity(settings.parity);
    line_.setDataBits(settings.dataBits);
    line_.setStopBits(settings.stopBits);
    line_.setFlowControl(QSerialPort::NoFlowControl);
}

void MSComm::CloseLine() {
    open_ = false;
    if (line_.isOpen()) {
        Drain();
        line_.close();
    }
    received_.clear();
}

void MSComm::Drain() {
    // Closing gives the line its old speed back, which must not overtake the last bytes; but a line
    // that takes none mustn't hold the program longer than they would need.
    constexpr unsigned long pollMicroseconds = 100;
    line_.flush();
    while (!gone_ && !sent_.hasExpired()) QThread::usleep(pollMicroseconds);
    const QDeadlineTimer grace(std::chrono::milliseconds(5), Qt::PreciseTimer);
    while (!gone_ && UnsentBytes(line_.handle()) > 0 && !grace.hasExpired()) {
        QThread::usleep(pollMicroseconds);
    }
}

void MSComm::RequireOpen() const {
    if (!open_) Raise(ErrorNumber::PortClosed);
}

void MSComm::Output(const Bytes& bytes) {
    RequireOpen();
    if (!gone_) {
        Send(reinterpret_cast<const char*>(bytes.data()), static_cast<qint64>(bytes.size()));
        const auto time = std::chrono::microseconds(
            qint64{1'000'000} * bitsPerByte * static_cast<qint64>(bytes.size()) / line_.baudRate());
        sent_ = QDeadlineTimer(
            std::chrono::nanoseconds(std::max<qint64>(sent_.remainingTimeNSecs(), 0)) + time,
            Qt::PreciseTimer);
    }
    if (gone_) {
        Raise(ErrorNumber::DeviceGone,
              "The device is gone: " + PortText(commPort_, line_.portName()) + " was pulled out");
    }
}

void MSComm::Send(const char* bytes, qint64 count) {
    // Straight to the system: the port object's own write would have the event loop wake twice more
    // for each request. It takes what the line has no room for, and tells of a line that is gone.
    const bool inOrder = line_.bytesToWrite() == 0;
    const auto handle = static_cast<int>(line_.handle());
    const qint64 sent = inOrder ? std::max<qint64>(::write(handle, bytes, count), 0) : 0;
    if (sent == count) return;
    line_.write(bytes + sent, count - sent);
    line_.flush();
}

void MSComm::Input(Bytes& bytes) {
    InBufferCount();
    const std::size_t most = inputLen_ > 0 ? static_cast<std::size_t>(inputLen_) : received_.size();
    const auto end =
        received_.begin() + static_cast<std::ptrdiff_t>(std::min(most, received_.size()));
    bytes.assign(received_.begin(), end);
    received_.erase(received_.begin(), end);
}

std::int16_t MSComm::InBufferCount() {
    RequireOpen();
    // Asked first, as the port object makes an error of there being nothing.
    if (line_.isOpen() && HasSomethingToRead(static_cast<int>(line_.handle()))) {
        reading_ = true;
        line_.waitForReadyRead(0);
        reading_ = false;
        TakeIn();
    }
    return static_cast<std::int16_t>(received_.size());
}

void MSComm::TakeIn() {
    const qint64 count = line_.bytesAvailable();
    if (count <= 0) return;
    const std::size_t before = received_.size();
    received_.resize(before + static_cast<std::size_t>(count));
    line_.read(reinterpret_cast<char*>(received_.data() + before), count);
    if (received_.size() > receiveBufferSize) received_.resize(receiveBufferSize);
}

bool MSComm::EventDue() const {
    return open_ && rThreshold_ > 0 && received_.size() >= static_cast<std::size_t>(rThreshold_);
}

void MSComm::OnLineError() {
    if (!open_ || gone_ || !LineIsDead(static_cast<int>(line_.handle()))) return;
    // A line that hung up reports its error without end, so its handle must go; but not from inside
    // its own signal. The control stays open for the program, which hears of it at its next output.
    gone_ = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (gone_ && line_.isOpen()) line_.close();
        },
        Qt::QueuedConnection);
}

}  // namespace orbkl4
