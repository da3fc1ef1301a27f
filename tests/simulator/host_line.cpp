#include "simulator/host_line.h"

#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <system_error>
#include <termios.h>
#include <unistd.h>

namespace orbkl4sim {

using namespace std::chrono_literals;

HostLine::HostLine(const std::filesystem::path& device, int baud)
    : descriptor_(open(device.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK)) {
    if (descriptor_ < 0) throw std::system_error(errno, std::generic_category(), device.string());
    if (baud != 0) SetBaud(baud);
}

HostLine::~HostLine() { close(descriptor_); }

void HostLine::SetBaud(int baud) const {
    termios settings{};
    tcgetattr(descriptor_, &settings);
    const speed_t code = baud == 19200 ? B19200 : baud == 38400 ? B38400 : B115200;
    cfsetspeed(&settings, code);
    tcsetattr(descriptor_, TCSANOW, &settings);
}

void HostLine::Send(const Bytes& bytes) const {
    if (write(descriptor_, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size())) {
        throw std::system_error(errno, std::generic_category(), "send");
    }
}

Bytes HostLine::Receive(std::size_t count, std::chrono::milliseconds limit) const {
    const auto end = std::chrono::steady_clock::now() + limit;
    Bytes received;
    while (received.size() < count) {
        const auto left =
            std::chrono::ceil<std::chrono::milliseconds>(end - std::chrono::steady_clock::now());
        if (left <= 0ms) break;
        const Bytes more = ReceiveOnce(left);
        received.insert(received.end(), more.begin(), more.end());
    }
    return received;
}

Bytes HostLine::ReceiveOnce(std::chrono::milliseconds limit) const {
    pollfd watched{descriptor_, POLLIN, 0};
    Bytes bytes;
    if (poll(&watched, 1, static_cast<int>(limit.count())) <= 0) return bytes;
    bytes.resize(65536);
    const ssize_t size = read(descriptor_, bytes.data(), bytes.size());
    bytes.resize(size > 0 ? static_cast<std::size_t>(size) : 0);
    return bytes;
}

Bytes HostLine::Ask(const Bytes& request, std::size_t count) const {
    Send(request);
    return Receive(count, 2s);
}

bool HostLine::HangsUp(std::chrono::milliseconds limit) const {
    pollfd watched{descriptor_, 0, 0};
    return poll(&watched, 1, static_cast<int>(limit.count())) == 1 &&
           (watched.revents & POLLHUP) != 0;
}

}  // namespace orbkl4sim
