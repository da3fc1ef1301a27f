#include "cli/line.h"

#include "base/run_time_error.h"
#include "cli/error.h"
#include "platform/system/port_device.h"
#include "platform/system/serial_line.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

namespace orbkl4::cli {

namespace {

/// How long a device may leave a request standing, which is far shorter than its buffer.
constexpr std::chrono::seconds longestSending{1};

/// How long a read waits for bytes, and so how late a signal may be noticed.
constexpr std::chrono::milliseconds longestRead{200};

/// Makes reads of the open device wait up to `longestRead` for the first byte: one system call for
/// each reply where waiting and then reading takes two.
void LetReadsWait(int handle, const std::string& name) {
    constexpr std::chrono::milliseconds unit{100};  // of VTIME
    termios settings{};
    bool done = ::tcgetattr(handle, &settings) == 0;
    settings.c_cc[VMIN] = 0;
    settings.c_cc[VTIME] = longestRead / unit;
    done = done && ::tcsetattr(handle, TCSANOW, &settings) == 0;
    done = done && ::fcntl(handle, F_SETFL, ::fcntl(handle, F_GETFL) & ~O_NONBLOCK) == 0;
    if (!done) throw CliError(Failure::NoLine, name + " can't be set: " + std::strerror(errno));
}

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
    // Not the port's own handle, as a write must not wait for a device that takes nothing.
    LetReadsWait(hold_.Handle(), name_);
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
    sent_ = SentAt(baud_, bytes.size(), sent_);
    for (std::size_t taken = 0; taken < bytes.size();) {
        const ssize_t size = ::write(handle_, bytes.data() + taken, bytes.size() - taken);
        if (size < 0 && errno != EAGAIN && errno != EINTR) ThrowGone();
        taken += static_cast<std::size_t>(std::max<ssize_t>(size, 0));
        pollfd entry{.fd = handle_, .events = POLLOUT, .revents = 0};
        if (taken < bytes.size() && !WaitFor({&entry, 1}, sent_ + longestSending)) return;
    }
}

void Line::TakeIn(Bytes& received) { Read(handle_, received); }

void Line::Read(int handle, Bytes& received) const {
    std::array<std::uint8_t, 4096> bytes;  // NOLINT(*-member-init): filled by read
    const ssize_t size = ::read(handle, bytes.data(), bytes.size());
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
        if (deadline - Clock::now() >= longestRead) {
            Read(hold_.Handle(), received);
            ThrowIfInterrupted();
            continue;
        }
        if (!WaitFor({&entry, 1}, deadline)) return false;
        TakeIn(received);
        if (received.size() == before && (entry.revents & (POLLHUP | POLLERR)) != 0) ThrowGone();
    }
    return true;
}

void Line::Discard() const {
    std::array<std::uint8_t, 4096> dropped;  // NOLINT(*-member-init): filled by read
    // Asking costs less than a read that finds nothing.
    const auto mayHaveBytes = [&] {
        int count = 0;
        return ::ioctl(handle_, FIONREAD, &count) != 0 || count > 0;
    };
    while (mayHaveBytes() && ::read(handle_, dropped.data(), dropped.size()) > 0) {
    }
}

void Line::ThrowGone() const {
    throw CliError(Failure::LineGone, name_ + " is gone: the line was pulled out",
                   "plug the sensor in again");
}

}  // namespace orbkl4::cli
