#include "simulated_sensor.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <stdexcept>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace orbkl4::test {

namespace {

Launch LaunchOf(const Stage& stage, const std::vector<std::string>& options,
                std::optional<uid_t> user, int input, int output) {
    Launch launch{stage.Simulator(), options};
    launch.environment = {{"XDG_CONFIG_HOME", stage.Config()}};
    launch.user = user;
    launch.descriptors = {{STDIN_FILENO, input}, {STDOUT_FILENO, output}};
    return launch;
}

std::array<int, 2> NewPipe() {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
        throw std::system_error(errno, std::generic_category(), "pipe");
    }
    return ends;
}

}  // namespace

SimulatedSensor::Pipes::Pipes() {
    const auto commands = NewPipe();
    const auto answers = NewPipe();
    theirInput = commands[0];
    command = commands[1];
    answer = answers[0];
    theirOutput = answers[1];
}

SimulatedSensor::Pipes::~Pipes() {
    for (const int end : {command, answer, theirInput, theirOutput}) ::close(end);
}

SimulatedSensor::SimulatedSensor(const Stage& stage, const std::vector<std::string>& options,
                                 std::optional<uid_t> user)
    : process_(LaunchOf(stage, options, user, pipes_.theirInput, pipes_.theirOutput)) {
    ReadLine();  // it tells its link once all is set up
}

SimulatedSensor::~SimulatedSensor() {
    process_.Signal(SIGTERM);
    process_.AwaitEnd();
}

std::string SimulatedSensor::ReadLine() {
    constexpr int patienceMilliseconds = 10'000;
    pollfd watched{pipes_.answer, POLLIN, 0};
    while (heard_.find('\n') == std::string::npos) {
        std::array<char, 4096> chunk{};
        const bool ready = ::poll(&watched, 1, patienceMilliseconds) == 1;
        const auto count = ready ? ::read(pipes_.answer, chunk.data(), chunk.size()) : 0;
        if (count <= 0) throw std::runtime_error("the simulated sensor doesn't answer");
        heard_.append(chunk.data(), static_cast<std::size_t>(count));
    }
    const auto end = heard_.find('\n');
    std::string line = heard_.substr(0, end);
    heard_.erase(0, end + 1);
    return line;
}

std::string SimulatedSensor::Command(const std::string& command) {
    const std::string line = command + '\n';
    if (::write(pipes_.command, line.data(), line.size()) < 0) {
        throw std::system_error(errno, std::generic_category(), "write");
    }
    for (;;) {
        std::string answer = ReadLine();
        if (!answer.starts_with('<')) return answer;
        requests_.push_back(std::move(answer));
    }
}

std::vector<std::string> SimulatedSensor::RequestsLogged() {
    Command("log off");
    return std::exchange(requests_, {});
}

}  // namespace orbkl4::test
