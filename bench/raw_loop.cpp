#include "bench/raw_loop.h"

#include <array>
#include <chrono>
#include <cstdint>
#include <ctime>
#include <fcntl.h>
#include <stdexcept>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

namespace orbkl4::bench {

namespace {

speed_t SpeedOf(int baud) {
    switch (baud) {
        case 19200: return B19200;
        case 115200: return B115200;
        default: return B38400;
    }
}

class RawLine {
  public:
    RawLine(const std::string& device, std::size_t replyLength, int baud)
        : file_(::open(device.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC)) {
        termios settings{};
        if (file_ < 0 || ::tcgetattr(file_, &settings) != 0) {
            throw std::runtime_error("can't open " + device);
        }
        ::cfmakeraw(&settings);
        settings.c_cc[VMIN] = static_cast<cc_t>(replyLength);
        settings.c_cc[VTIME] = 0;
        ::cfsetspeed(&settings, SpeedOf(baud));
        ::tcsetattr(file_, TCSANOW, &settings);
        ::tcflush(file_, TCIOFLUSH);
    }
    ~RawLine() { ::close(file_); }
    RawLine(const RawLine&) = delete;
    RawLine& operator=(const RawLine&) = delete;

    bool Ask(std::uint8_t command) const { return ::write(file_, &command, 1) == 1; }

    /// Whether a whole reply has come, waited for without sleeping.
    bool Await(std::size_t replyLength) const {
        using Clock = std::chrono::steady_clock;
        const auto limit = Clock::now() + std::chrono::seconds(1);
        for (int waiting = 0; Clock::now() < limit;) {
            if (::ioctl(file_, FIONREAD, &waiting) != 0) return false;
            if (waiting >= static_cast<int>(replyLength)) return true;
        }
        return false;
    }

    bool Take(std::size_t replyLength) {
        std::size_t taken = 0;
        while (taken < replyLength) {
            const auto length = ::read(file_, reply_.data() + taken, replyLength - taken);
            if (length <= 0) return false;
            taken += static_cast<std::size_t>(length);
        }
        return true;
    }

  private:
    int file_;
    std::array<std::uint8_t, 64> reply_{};
};

}  // namespace

double ThreadCpuSeconds() {
    timespec time{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

LoopResult RawLoop(const std::string& device, DeviceCommand command, int baud, double seconds) {
    using Clock = std::chrono::steady_clock;
    const std::size_t length = ReplyLength(command);
    RawLine line(device, length, baud);
    LoopResult result;
    const double cpuBefore = ThreadCpuSeconds();
    const auto start = Clock::now();
    while (result.seconds < seconds && line.Ask(ByteOf(command)) && line.Take(length)) {
        result.samples += 1;
        result.seconds = std::chrono::duration<double>(Clock::now() - start).count();
    }
    result.cpuSeconds = ThreadCpuSeconds() - cpuBefore;
    result.intervals = result.samples;
    return result;
}

std::vector<double> BareHandlerTimes(const std::string& device, DeviceCommand command, int baud,
                                     const std::string& file, int count) {
    using Clock = std::chrono::steady_clock;
    const std::size_t length = ReplyLength(command);
    const std::string row(75, '0');  // about as long as a row of SensorBits
    RawLine line(device, length, baud);
    std::vector<double> times;
    line.Ask(ByteOf(command));
    for (int i = 0; i < count && line.Await(length); ++i) {
        const auto start = Clock::now();
        bool done = line.Take(length);
        const int handle = ::open(file.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0666);
        done = ::write(handle, row.data(), row.size()) > 0 && done;
        ::close(handle);
        if (!line.Ask(ByteOf(command)) || !done) break;
        times.push_back(std::chrono::duration<double>(Clock::now() - start).count());
    }
    line.Take(length);
    return times;
}

}  // namespace orbkl4::bench
