#include "cli/signals.h"

#include "cli/error.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <limits>
#include <string>
#include <unistd.h>
#include <vector>

namespace orbkl4::cli {

namespace {

// A handler may touch little else. The pipe ends a wait that is about to begin as well.
volatile std::sig_atomic_t signalReceived = 0;
std::array<int, 2> pipeEnds{-1, -1};

void Note(int number) {
    const int saved = errno;
    signalReceived = number;
    [[maybe_unused]] const ssize_t size = ::write(pipeEnds[1], "", 1);
    errno = saved;
}

int MillisecondsUntil(Clock::time_point deadline) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
    constexpr decltype(left) most = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp<decltype(left)>(left, 0, most));
}

}  // namespace

void CatchSignals() {
    if (::pipe(pipeEnds.data()) != 0) throw CliError(Failure::System, std::strerror(errno));
    for (const int end : pipeEnds) {
        ::fcntl(end, F_SETFD, FD_CLOEXEC);
        ::fcntl(end, F_SETFL, O_NONBLOCK);
    }
    struct sigaction action {};
    action.sa_handler = Note;
    action.sa_flags = static_cast<int>(SA_RESETHAND | SA_RESTART);
    for (const int number : {SIGINT, SIGTERM, SIGHUP}) ::sigaction(number, &action, nullptr);
}

int SignalReceived() { return signalReceived; }

void ThrowIfInterrupted() {
    if (signalReceived != 0) throw CliError(Failure::Interrupted, "interrupted");
}

bool WaitFor(std::span<pollfd> entries, Clock::time_point deadline) {
    thread_local std::vector<pollfd> watched;  // keeps its memory from wait to wait
    watched.assign(entries.begin(), entries.end());
    watched.push_back({.fd = pipeEnds[0], .events = POLLIN, .revents = 0});
    int ready = 0;
    do {
        ready = ::poll(watched.data(), watched.size(), MillisecondsUntil(deadline));
    } while (ready < 0 && errno == EINTR && signalReceived == 0);
    ThrowIfInterrupted();
    std::copy_n(watched.begin(), entries.size(), entries.begin());
    return ready > 0;
}

}  // namespace orbkl4::cli
