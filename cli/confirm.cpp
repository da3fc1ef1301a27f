#include "cli/confirm.h"

#include "cli/signals.h"

#include <array>
#include <cstdio>
#include <unistd.h>

namespace orbkl4::cli {

bool CanAsk() { return ::isatty(STDIN_FILENO) != 0 && ::isatty(STDERR_FILENO) != 0; }

bool Confirm(const std::string& question) {
    std::fprintf(stderr, "%s [y/N] ", question.c_str());
    pollfd entry{.fd = STDIN_FILENO, .events = POLLIN, .revents = 0};
    while (!WaitFor({&entry, 1}, Clock::now() + std::chrono::hours(1))) {
    }
    std::array<char, 256> answer{};
    const ssize_t size = ::read(STDIN_FILENO, answer.data(), answer.size());
    return size > 0 && (answer[0] == 'y' || answer[0] == 'Y');
}

}  // namespace orbkl4::cli
