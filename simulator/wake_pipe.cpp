#include "simulator/wake_pipe.h"

#include "simulator/throw_errno.h"

#include <fcntl.h>
#include <unistd.h>

namespace orbkl4sim {

WakePipe::WakePipe() {
    if (pipe(ends_.data()) != 0) ThrowErrno("pipe");
    for (const int end : ends_) {
        fcntl(end, F_SETFD, FD_CLOEXEC);
        fcntl(end, F_SETFL, O_NONBLOCK);
    }
}

WakePipe::~WakePipe() {
    for (const int end : ends_) close(end);
}

void WakePipe::Wake() const noexcept {
    // If the pipe is full, the thread wakes anyway.
    [[maybe_unused]] const ssize_t size = write(ends_[1], "", 1);
}

void WakePipe::Clear() const noexcept {
    std::array<char, 64> bytes;  // NOLINT(*-member-init): filled by read
    while (read(ends_[0], bytes.data(), bytes.size()) > 0) {
    }
}

}  // namespace orbkl4sim
