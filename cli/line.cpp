#include "cli/line.h"

#include "base/run_time_error.h"
#include "cli/error.h"
#include "platform/system/port_device.h"
#include "platform/system/serial_line.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <unistd.h>

namespace orbkl4::cli {

namespace {

/// How long a device may leave a request standing, which is far shorter than its buffer.
constexpr std::chrono::seconds longestSending{1};

}  // namespace

Line::Line(const PortDevice& device, int baud)
    : hold_(device), name_(device.name.toStdString()), baud_(baud) {
    try {
        OpenLine(port_, device, name_, LineSettings{.baud = baud});
    } catch (const RuntimeError& error) {
        if (error.Number() == ErrorNumber::PortAlreadyOpen) ThrowBusy(name_);
        throw CliError(Failure::NoLine, error.what());
    }
    handle_ = static_cast<int>(port_.handle());
}

Line::~Line() {
    // Closing sets the former speed, which must not overtake the last bytes.
    AwaitSent(port_, sent_);
    port_.close();
}

void Line::SetBaud(int baud) {
    AwaitSent(port_, sent_);
    port_.setBaudRate(baud);
    baud_ = baud;
    port_.clear(QSerialPort::Input);
}

bool Line::Dead() const { return LineIsDead(port_); }

void Line::Send(const Bytes& bytes) {
    const auto deadline = Clock::now() + longestSending;
    sent_ = SentAt(baud_, bytes.size(), sent_);
    for (std::size_t taken = 0; taken < bytes.size();) {
        const ssize_t size = ::write(handle_, bytes.data() + taken, bytes.size() - taken);
        if (size < 0 && errno != EAGAIN && errno != EINTR) ThrowGone();
        taken += static_cast<std::size_t>(std::max<ssize_t>(size, 0));
        pollfd entry{.fd = handle_, .events = POLLOUT, .revents = 0};
        if (taken < bytes.size() && !WaitFor({&entry, 1}, deadline)) return;
    }
}

void Line::TakeIn(Bytes& received) {
    std::array<std::uint8_t, 4096> bytes;  // NOLINT(*-member-init): filled by read
    const ssize_t size = ::read(handle_, bytes.data(), bytes.size());
    if (size > 0) {
        received.insert(received.end(), bytes.begin(), bytes.begin() + size);
    } else if (size == 0 || (errno != EAGAIN && errno != EINTR)) {
        // A raw terminal without bytes may read as an end of file too.
        if (size < 0 || Dead()) ThrowGone();
    }
}

bool Line::Receive(Bytes& received, Clock::time_point deadline) {
    const std::size_t before = received.size();
    pollfd entry{.fd = handle_, .events = POLLIN, .revents = 0};
    while (received.size() == before) {
        if (!WaitFor({&entry, 1}, deadline)) return false;
        TakeIn(received);
        if (received.size() == before && (entry.revents & (POLLHUP | POLLERR)) != 0) ThrowGone();
    }
    return true;
}

void Line::Discard() const {
    std::array<std::uint8_t, 4096> dropped;  // NOLINT(*-member-init): filled by read
    while (::read(handle_, dropped.data(), dropped.size()) > 0) {
    }
}

void Line::ThrowGone() const {
    throw CliError(Failure::LineGone, name_ + " is gone: the line was pulled out",
                   "plug the sensor in again");
}

}  // namespace orbkl4::cli
