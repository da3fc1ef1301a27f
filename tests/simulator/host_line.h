#pragma once

#include "simulator/bytes.h"
#include "simulator/throw_errno.h"

#include <array>
#include <chrono>
#include <fcntl.h>
#include <filesystem>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

namespace orbkl4sim {

/// The host's end of a serial line, using plain system calls.
class HostLine {
  public:
    /// Opens `device` at `baud`; 0 doesn't set the baud rate.
    explicit HostLine(const std::filesystem::path& device, int baud = 0)
        : descriptor_(open(device.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK)) {
        if (descriptor_ < 0) ThrowErrno(device.string());
        if (baud != 0) SetBaud(baud);
    }
    ~HostLine() { close(descriptor_); }
    HostLine(const HostLine&) = delete;
    HostLine& operator=(const HostLine&) = delete;

    int Descriptor() const { return descriptor_; }

    void SetBaud(int baud) const {
        termios settings{};
        tcgetattr(descriptor_, &settings);
        cfsetspeed(&settings, baud == 19200 ? B19200 : baud == 38400 ? B38400 : B115200);
        tcsetattr(descriptor_, TCSANOW, &settings);
    }

    void Send(const Bytes& bytes) const {
        if (write(descriptor_, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size())) {
            ThrowErrno("send");
        }
    }

    /// Receives up to `count` bytes, until none has arrived for `limit`.
    Bytes Receive(std::size_t count, std::chrono::milliseconds limit) const {
        Bytes received;
        while (received.size() < count && Comes(POLLIN, limit)) {
            std::array<std::uint8_t, 64> bytes{};
            const ssize_t size = read(descriptor_, bytes.data(), bytes.size());
            if (size <= 0) break;
            received.insert(received.end(), bytes.begin(), bytes.begin() + size);
        }
        return received;
    }

    /// The reply of `count` bytes to `request`, or less if it isn't complete in time.
    Bytes Ask(const Bytes& request, std::size_t count) const {
        Send(request);
        return Receive(count, std::chrono::seconds(2));
    }

    /// Whether the line hangs up within `limit`.
    bool HangsUp(std::chrono::milliseconds limit) const { return Comes(POLLHUP, limit); }

  private:
    bool Comes(short event, std::chrono::milliseconds limit) const {
        pollfd watched{descriptor_, event, 0};
        return poll(&watched, 1, static_cast<int>(limit.count())) == 1 &&
               (watched.revents & event) != 0;
    }

    int descriptor_;
};

}  // namespace orbkl4sim
