#include "support/pty_master.h"

#include <QDeadlineTimer>
#include <QThread>

#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

namespace orbkl4::test {

PtyMaster::PtyMaster() : master_(::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK)) {
    ::grantpt(master_);
    ::unlockpt(master_);
    path_ = QString::fromLocal8Bit(::ptsname(master_));
    termios settings{};
    ::tcgetattr(master_, &settings);
    ::cfmakeraw(&settings);
    ::tcsetattr(master_, TCSANOW, &settings);
}

PtyMaster::~PtyMaster() { HangUp(); }

void PtyMaster::Send(const Bytes& bytes) const {
    [[maybe_unused]] const auto written = ::write(master_, bytes.data(), bytes.size());
    Q_ASSERT(written == static_cast<ssize_t>(bytes.size()));
}

Bytes PtyMaster::Take(std::size_t count) const {
    Bytes taken;
    const QDeadlineTimer deadline(10000);
    do {
        std::array<std::uint8_t, 4096> chunk{};
        const auto length = ::read(master_, chunk.data(), chunk.size());
        if (length > 0) {
            taken.insert(taken.end(), chunk.begin(), chunk.begin() + length);
        } else if (taken.size() < count) {
            QThread::usleep(100);
        }
    } while (taken.size() < count && !deadline.hasExpired());
    return taken;
}

void PtyMaster::HangUp() {
    if (master_ >= 0) ::close(master_);
    master_ = -1;
}

}  // namespace orbkl4::test
