#include "child_process.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <linux/capability.h>
#include <poll.h>
#include <sstream>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace orbkl4::test {

namespace {

/// Becomes the program; only in a fresh child.
[[noreturn]] void Become(std::string& program, std::vector<std::string>& arguments,
                         const std::map<std::string, std::string>& environment, int line) {
    constexpr int programNotStarted = 127;
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    // Root could open lines that an ordinary user can't; others have no such rights to lose.
    ::prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE, 0, 0, 0);
    ::prctl(PR_CAPBSET_DROP, CAP_SYS_ADMIN, 0, 0, 0);
    ::dup2(line, STDIN_FILENO);
    ::dup2(line, STDOUT_FILENO);
    for (const auto& [name, value] : environment) ::setenv(name.c_str(), value.c_str(), 1);
    std::vector<char*> words{program.data()};
    for (std::string& argument : arguments) words.push_back(argument.data());
    words.push_back(nullptr);
    ::execv(words.front(), words.data());
    ::_exit(programNotStarted);
}

}  // namespace

ChildProcess::ChildProcess(std::string program, std::vector<std::string> arguments,
                           const std::map<std::string, std::string>& environment) {
    std::array<int, 2> ends{};
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) {
        throw std::system_error(errno, std::generic_category(), "socketpair");
    }
    id_ = ::fork();
    if (id_ < 0) throw std::system_error(errno, std::generic_category(), "fork");
    if (id_ == 0) Become(program, arguments, environment, ends[1]);
    ::close(ends[1]);
    line_ = ends[0];
}

ChildProcess::~ChildProcess() {
    Kill();
    ::close(line_);
}

void ChildProcess::Say(const std::string& text) const {
    if (::send(line_, text.data(), text.size(), MSG_NOSIGNAL) < 0) {
        throw std::runtime_error("the program has ended");
    }
}

std::string ChildProcess::Hear(char end) {
    pollfd watched{line_, POLLIN, 0};
    while (heard_.find(end) == std::string::npos) {
        std::array<char, 4096> chunk{};
        if (::poll(&watched, 1, static_cast<int>(patience.count())) != 1) {
            throw std::runtime_error("the program doesn't answer");
        }
        const auto count = ::read(line_, chunk.data(), chunk.size());
        if (count <= 0) throw std::runtime_error("the program has ended");
        heard_.append(chunk.data(), static_cast<std::size_t>(count));
    }
    const auto length = heard_.find(end);
    std::string text = heard_.substr(0, length);
    heard_.erase(0, length + 1);
    return text;
}

void ChildProcess::Pause() const {
    ::kill(id_, SIGSTOP);
    ::waitpid(id_, nullptr, WUNTRACED);
}

void ChildProcess::Kill() {
    if (HasEnded()) return;
    ::kill(id_, SIGKILL);
    AwaitEnd();
}

bool ChildProcess::HasEnded() {
    int status = 0;
    if (!code_ && ::waitpid(id_, &status, WNOHANG) == id_) {
        code_ = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    return code_.has_value();
}

int ChildProcess::AwaitEnd(std::chrono::milliseconds limit) {
    WaitUntil([this] { return HasEnded(); }, limit);
    return code_.value_or(-1);
}

double ChildProcess::ProcessorSeconds() const {
    clockid_t clock{};
    timespec used{};
    ::clock_getcpuclockid(id_, &clock);
    ::clock_gettime(clock, &used);
    return static_cast<double>(used.tv_sec) + static_cast<double>(used.tv_nsec) * 1e-9;
}

std::string ContentOf(const std::filesystem::path& path) {
    std::ostringstream content;
    content << std::ifstream(path, std::ios::binary).rdbuf();
    return content.str();
}

}  // namespace orbkl4::test
