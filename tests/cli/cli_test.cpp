#include "cli/cli_test.h"

#include <QJsonDocument>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <stdexcept>
#include <sys/prctl.h>
#include <thread>
#ifdef __linux__
#include <linux/capability.h>
#endif

namespace orbkl4::cli::test {

namespace {

constexpr int patience = 30'000;  // milliseconds, on a busy machine

void DropPrivileges() {
#ifdef __linux__
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    ::prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE, 0, 0, 0);
    ::prctl(PR_CAPBSET_DROP, CAP_SYS_ADMIN, 0, 0, 0);
#endif
}

}  // namespace

QJsonObject JsonOf(const std::string& text) {
    return QJsonDocument::fromJson(QByteArray::fromStdString(text)).object();
}

std::string TextOf(const QJsonObject& object) {
    return QJsonDocument(object).toJson().toStdString();
}

std::vector<int> MemoryOf(const orbkl4sim::Simulator& sensor) {
    std::vector<int> words;
    for (int address = 0; address < 256; address += 2) words.push_back(sensor.Word(address));
    return words;
}

std::string Outcome::Error() const {
    return Json().value("error").toObject().value("code").toString().toStdString();
}

CliProcess::CliProcess(const Words& arguments, const Environment& environment) {
    QStringList words;
    for (const std::string& argument : arguments) words += QString::fromStdString(argument);
    QProcessEnvironment variables;
    for (const auto& [name, value] : environment)
        variables.insert(QString::fromStdString(name), QString::fromStdString(value));
    process_.setProcessEnvironment(variables);
    process_.setChildProcessModifier(DropPrivileges);
    process_.start(QStringLiteral(CLI_PROGRAM), words);
    if (!process_.waitForStarted()) throw std::runtime_error("can't start " CLI_PROGRAM);
}

CliProcess::~CliProcess() {
    process_.kill();
    process_.waitForFinished(patience);
}

Outcome CliProcess::AwaitEnd() {
    process_.waitForFinished(patience);
    const bool ended =
        process_.state() == QProcess::NotRunning && process_.exitStatus() == QProcess::NormalExit;
    return {ended ? process_.exitCode() : -1, process_.readAllStandardOutput().toStdString(),
            process_.readAllStandardError().toStdString()};
}

testing::AssertionResult Comes(const std::function<bool()>& condition) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(patience);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) return testing::AssertionFailure();
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return testing::AssertionSuccess();
}

CliTest::CliTest() {
    // A plain file is no serial line, so that the port stands for none of this machine's.
    const auto none = folder_.Write("no-line", "");
    std::filesystem::create_directories(PortLink(1).parent_path());
    for (int number = 1; number <= 16; ++number)
        std::filesystem::create_symlink(none, PortLink(number));
}

orbkl4sim::Simulator& CliTest::Plug(int number, orbkl4sim::SimulatorOptions options) {
    std::filesystem::remove(PortLink(number));
    auto& sensor =
        sensors_.emplace_back(std::make_unique<orbkl4sim::Simulator>(std::move(options)));
    sensor->LinkAs(PortLink(number));
    sensor->Start();
    return *sensor;
}

std::filesystem::path CliTest::PortLink(int number) const {
    return folder_.Path() / "Kestrelmoor/ORB-KL4-RS232/ports" / std::to_string(number);
}

Environment CliTest::Surroundings(const Environment& more) const {
    const std::string home = folder_.Path().string();
    Environment environment{{"XDG_CONFIG_HOME", home},
                            {"XDG_DATA_HOME", home + "/data"},
                            {"HOME", home},
                            {"PATH", "/usr/bin:/bin"},
                            {"LC_ALL", "C.UTF-8"}};
    for (const auto& [name, value] : more) environment[name] = value;
    return environment;
}

std::string CliTest::Shell(const std::string& script) const {
    const std::string folder = folder_.Path().string();
    const std::string line = "cd " + folder + "; PATH=/usr/bin:$PATH XDG_CONFIG_HOME=" + folder +
                             " bash -c '" + script + "' - \"" CLI_PROGRAM "\" 2>&1";
    std::string text;
    std::FILE* const pipe = ::popen(line.c_str(), "r");
    std::array<char, 256> part;
    while (std::fgets(part.data(), part.size(), pipe) != nullptr) text += part.data();
    ::pclose(pipe);
    return text;
}

Outcome CliTest::Run(const Words& arguments, const Environment& more) const {
    return CliProcess(arguments, Surroundings(more)).AwaitEnd();
}

}  // namespace orbkl4::cli::test
