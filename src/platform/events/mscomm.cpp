#include "platform/events/mscomm.h"

#include "base/run_time_error.h"
#include "platform/system/line_settings.h"
#include "platform/system/port_device.h"
#include "platform/system/serial_line.h"

#include <algorithm>

namespace orbkl4 {

namespace {

constexpr std::size_t receiveBufferSize = 32767;

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
    if (open_) ClosePort();
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
        if (open_) ClosePort();
        return;
    }
    if (open_) Raise(ErrorNumber::PortAlreadyOpen);
    OpenPort();
}

void MSComm::OpenPort() {
    const PortDevice device = DeviceOfPort(commPort_);
    OpenLine(line_, device, PortText(commPort_, device.name), ParseLineSettings(settings_));
    // Not every version of QSerialPort reports a hang-up; from 6.8 on it reads nothing for ever.
    hangUp_ = std::make_unique<QSocketNotifier>(line_.handle(), QSocketNotifier::Exception);
    connect(hangUp_.get(), &QSocketNotifier::activated, this, &MSComm::OnLineError);
    received_.clear();
    sent_ = {};
    gone_ = false;
    open_ = true;
}

void MSComm::ClosePort() {
    open_ = false;
    if (line_.isOpen()) {
        // Closing restores the line's old speed, which must not garble the last bytes; but a line
        // that takes none must not hold the program up for longer than they need.
        AwaitSent(line_, sent_);
        CloseLine();
    }
    received_.clear();
}

void MSComm::CloseLine() {
    hangUp_.reset();
    line_.close();
}

void MSComm::RequireOpen() const {
    if (!open_) Raise(ErrorNumber::PortClosed);
}

void MSComm::Output(const Bytes& bytes) {
    RequireOpen();
    if (!gone_) {
        SendAtOnce(line_, bytes);
        sent_ = SentAt(line_.baudRate(), bytes.size(), sent_);
    }
    if (gone_) {
        Raise(ErrorNumber::DeviceGone,
              "The device is gone: " + PortText(commPort_, line_.portName()) + " was pulled out");
    }
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
    // Checked first, as QSerialPort reports an error when there is nothing to read.
    if (line_.isOpen() && HasSomethingToRead(line_)) {
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
    if (!open_ || gone_ || !LineIsDead(line_)) return;
    // A line that hung up wakes the event loop without end, so its handle must go, but not from
    // inside its own signal. The control stays open for the program, whose next output fails.
    gone_ = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (gone_ && line_.isOpen()) CloseLine();
        },
        Qt::QueuedConnection);
}

}  // namespace orbkl4
