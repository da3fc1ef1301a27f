#include "child_process.h"

#include <csignal>
#include <ctime>
#include <fstream>
#include <linux/capability.h>
#include <sstream>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/wait.h>

namespace orbkl4::test {

namespace {

int Milliseconds(std::chrono::milliseconds time) { return static_cast<int>(time.count()); }

}  // namespace

ChildProcess::ChildProcess(const std::string& program, const std::vector<std::string>& arguments,
                           const std::map<std::string, std::string>& environment) {
    QStringList words;
    for (const std::string& argument : arguments) words += QString::fromStdString(argument);
    auto variables = QProcessEnvironment::systemEnvironment();
    for (const auto& [name, value] : environment)
        variables.insert(QString::fromStdString(name), QString::fromStdString(value));
    process_.setProcessEnvironment(variables);
    process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process_.setChildProcessModifier([] {
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        // Root could open lines that an ordinary user can't; others have no such rights to lose.
        ::prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE, 0, 0, 0);
        ::prctl(PR_CAPBSET_DROP, CAP_SYS_ADMIN, 0, 0, 0);
    });
    process_.start(QString::fromStdString(program), words);
    if (!process_.waitForStarted()) throw std::runtime_error("can't start " + program);
}

void ChildProcess::Write(const std::string& text) {
    process_.write(text.data(), static_cast<qint64>(text.size()));
    if (!process_.waitForBytesWritten()) throw std::runtime_error("the program has ended");
}

std::string ChildProcess::ReadUpTo(char end) {
    while (!(received_ += process_.readAllStandardOutput()).contains(end)) {
        if (!process_.waitForReadyRead(Milliseconds(patience)))
            throw std::runtime_error("the program doesn't answer, or has ended");
    }
    const auto length = received_.indexOf(end);
    const std::string text = received_.left(length).toStdString();
    received_.remove(0, length + 1);
    return text;
}

void ChildProcess::Pause() const {
    const auto id = static_cast<pid_t>(process_.processId());
    ::kill(id, SIGSTOP);
    ::waitpid(id, nullptr, WUNTRACED);
}

void ChildProcess::Resume() const { ::kill(static_cast<pid_t>(process_.processId()), SIGCONT); }

void ChildProcess::Kill() {
    process_.kill();
    process_.waitForFinished(Milliseconds(patience));
}

int ChildProcess::AwaitEnd(std::chrono::milliseconds limit) {
    process_.waitForFinished(Milliseconds(limit));
    const bool ended = process_.state() == QProcess::NotRunning;
    return ended && process_.exitStatus() == QProcess::NormalExit ? process_.exitCode() : -1;
}

double ChildProcess::ProcessorSeconds() const {
    clockid_t clock{};
    timespec used{};
    ::clock_getcpuclockid(static_cast<pid_t>(process_.processId()), &clock);
    ::clock_gettime(clock, &used);
    return static_cast<double>(used.tv_sec) + static_cast<double>(used.tv_nsec) * 1e-9;
}

std::string ContentOf(const std::filesystem::path& path) {
    std::ostringstream content;
    content << std::ifstream(path, std::ios::binary).rdbuf();
    return content.str();
}

}  // namespace orbkl4::test
