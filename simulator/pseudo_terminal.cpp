#include "simulator/pseudo_terminal.h"

#include "simulator/throw_errno.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#ifdef __linux__
#include <sys/inotify.h>
#endif

namespace orbkl4sim {

namespace {

struct HostSpeed {
    speed_t code;
    int baud;
};

// The initial setting. No host uses 50 baud, so it means that none has set a baud rate yet.
constexpr speed_t kUnset = B50;
constexpr std::array kHostSpeeds{HostSpeed{kUnset, 0},     HostSpeed{B9600, 9600},
                                 HostSpeed{B19200, 19200}, HostSpeed{B38400, 38400},
                                 HostSpeed{B57600, 57600}, HostSpeed{B115200, 115200}};

}  // namespace

PseudoTerminal::PseudoTerminal() {
    try {
        Open();
    } catch (...) {
        Close();
        throw;
    }
}

PseudoTerminal::~PseudoTerminal() { Close(); }

void PseudoTerminal::Open() {
    sensorEnd_ = posix_openpt(O_RDWR | O_NOCTTY);
    if (sensorEnd_ < 0 || grantpt(sensorEnd_) != 0 || unlockpt(sensorEnd_) != 0) {
        ThrowErrno("no pseudo terminal");
    }
    fcntl(sensorEnd_, F_SETFD, FD_CLOEXEC);
    fcntl(sensorEnd_, F_SETFL, O_NONBLOCK);
    path_ = ptsname(sensorEnd_);
    hostEnd_ = open(path_.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    termios settings{};
    if (hostEnd_ < 0 || tcgetattr(hostEnd_, &settings) != 0) ThrowErrno(path_);
    cfmakeraw(&settings);
    cfsetspeed(&settings, kUnset);
    if (tcsetattr(hostEnd_, TCSANOW, &settings) != 0) ThrowErrno(path_);
#ifdef __linux__
    watch_ = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    if (watch_ >= 0) inotify_add_watch(watch_, path_.c_str(), IN_OPEN | IN_CLOSE);
#endif
}

void PseudoTerminal::Close() noexcept {
    for (const int descriptor : {watch_, hostEnd_, sensorEnd_}) {
        if (descriptor >= 0) close(descriptor);
    }
}

void PseudoTerminal::ClearExclusiveIfClosed() const {
#ifdef __linux__
    std::array<char, 4096> buffer;  // NOLINT(*-member-init): filled by read
    bool closed = false;
    ssize_t size = 0;
    while ((size = read(watch_, buffer.data(), buffer.size())) > 0) {
        for (ssize_t at = 0; at < size;) {
            const auto* const event =
                reinterpret_cast<const inotify_event*>(buffer.data() + at);  // NOLINT
            closed = (event->mask & IN_CLOSE) != 0;
            at += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
        }
    }
    if (closed) ioctl(hostEnd_, TIOCNXCL);
#endif
}

int PseudoTerminal::HostBaud() const {
    termios settings{};
    if (tcgetattr(hostEnd_, &settings) != 0) return -1;
    const auto* const speed =
        std::ranges::find(kHostSpeeds, cfgetospeed(&settings), &HostSpeed::code);
    return speed == kHostSpeeds.end() ? -1 : speed->baud;
}

Bytes PseudoTerminal::Read() const {
    Bytes bytes(4096);
    const ssize_t size = read(sensorEnd_, bytes.data(), bytes.size());
    bytes.resize(size > 0 ? static_cast<std::size_t>(size) : 0);
    return bytes;
}

void PseudoTerminal::Write(const Bytes& bytes) const {
    // A full buffer is an overrun at the host, where a real line would lose the bytes as well.
    [[maybe_unused]] const ssize_t size = write(sensorEnd_, bytes.data(), bytes.size());
}

}  // namespace orbkl4sim
