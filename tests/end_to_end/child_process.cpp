#include "child_process.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <grp.h>
#include <iterator>
#include <sstream>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace orbkl4::test {

namespace {

/// Becomes the program; only in a fresh child.
[[noreturn]] void Become(const Launch& launch) {
    constexpr int programNotStarted = 127;
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    for (const auto& [theirs, ours] : launch.descriptors) {
        if (theirs == ours) {
            ::fcntl(ours, F_SETFD, 0);
        } else {
            ::dup2(ours, theirs);
        }
    }
    for (const auto& [name, value] : launch.environment) {
        ::setenv(name.c_str(), value.c_str(), 1);
    }
    std::vector<std::string> words{launch.program.string()};
    words.insert(words.end(), launch.arguments.begin(), launch.arguments.end());
    std::vector<char*> pointers;
    for (std::string& word : words) pointers.push_back(word.data());
    pointers.push_back(nullptr);
    if (launch.fileSize) {
        rlimit limit{};
        ::getrlimit(RLIMIT_FSIZE, &limit);
        limit.rlim_cur = *launch.fileSize;
        ::setrlimit(RLIMIT_FSIZE, &limit);
        ::signal(SIGXFSZ, SIG_IGN);
    }
    if (launch.user) {
        const uid_t user = *launch.user;
        const bool changed = ::setgroups(0, nullptr) == 0 && ::setresgid(user, user, user) == 0 &&
                             ::setresuid(user, user, user) == 0;
        if (!changed) ::_exit(programNotStarted);
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);  // the change has undone it
    }
    ::execv(pointers.front(), pointers.data());
    ::_exit(programNotStarted);
}

}  // namespace

ChildProcess::ChildProcess(const Launch& launch) : id_(::fork()) {
    if (id_ < 0) throw std::system_error(errno, std::generic_category(), "fork");
    if (id_ == 0) Become(launch);
}

ChildProcess::~ChildProcess() { Kill(); }

std::optional<Ending> ChildProcess::Look() {
    int status = 0;
    if (!ending_ && ::waitpid(id_, &status, WNOHANG) == id_) {
        ending_ = WIFEXITED(status) ? Ending{WEXITSTATUS(status), 0} : Ending{-1, WTERMSIG(status)};
    }
    return ending_;
}

void ChildProcess::Signal(int signal) const { ::kill(id_, signal); }

void ChildProcess::Pause() const {
    Signal(SIGSTOP);
    ::waitpid(id_, nullptr, WUNTRACED);
}

void ChildProcess::Kill() {
    if (!Running()) return;
    Signal(SIGKILL);
    AwaitEnd();
}

Ending ChildProcess::AwaitEnd(std::chrono::milliseconds limit) {
    WaitUntil([this] { return !Running(); }, limit);
    return ending_.value_or(Ending{});
}

double ChildProcess::ProcessorSeconds() const {
    // Behind the name in parentheses: the state and ten numbers, then user and system time.
    const std::string line = ContentOf("/proc/" + std::to_string(id_) + "/stat");
    std::istringstream fields(line.substr(line.rfind(')') + 1));
    std::string skipped;
    for (int i = 0; i < 11; ++i) fields >> skipped;
    long user = 0;
    long system = 0;
    fields >> user >> system;
    return static_cast<double>(user + system) / static_cast<double>(::sysconf(_SC_CLK_TCK));
}

std::string ContentOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace orbkl4::test
