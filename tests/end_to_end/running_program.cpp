#include "running_program.h"

#include "wire_text.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <poll.h>
#include <stdexcept>
#include <sys/socket.h>
#include <system_error>
#include <unistd.h>

namespace orbkl4::test {

namespace {

// The program stands still for a second and more at times, and longer still on a busy machine.
constexpr auto patience = 20s;

Launch LaunchOf(const Stage& stage, const Conditions& conditions, int socket) {
    Launch launch{stage.Program()};
    launch.environment = {{"QT_QPA_PLATFORM", "offscreen"},
                          {"QT_PLUGIN_PATH", stage.PluginFolder()},
                          {"QT_QPA_GENERIC_PLUGINS", "hand:" + std::to_string(socket)},
                          {"HOME", stage.Root()},
                          {"XDG_RUNTIME_DIR", stage.Root()},
                          {"XDG_CONFIG_HOME", stage.Config()}};
    launch.descriptors = {{socket, socket}};
    launch.fileSize = conditions.fileSize;
    launch.user = conditions.user;
    return launch;
}

}  // namespace

MessageBox Telling(const std::string& text) { return {"ORB-KL4", text, {"OK"}}; }

MessageBox AboutError(const std::string& number, const std::string& source,
                      const std::string& screen, const std::string& description) {
    return {"ORB-KL4",
            "The error shown below has occurred!\r\n"
            "The data being generated at this time may have been corrupted.\r\n"
            "Please correct the error or contact Kestrelmoor for customer support.\r\n"
            "\r\n"
            "Date: D\r\n"
            "Number: " +
                number +
                "\r\n"
                "Source: " +
                source +
                "\r\n"
                "Screen: " +
                screen +
                "\r\n"
                "Description: " +
                description +
                "\r\n"
                "Application: ORB-KL4 Data Acquisition and Display Software\r\n"
                "Version: 2.0.4\r\n"
                "\r\n"
                "RETRY will allow application to continue.\r\n"
                "CANCEL will terminate application.\r\n",
            {"Retry", "Cancel"}};
}

std::ostream& operator<<(std::ostream& out, const MessageBox& box) {
    out << box.title << ": " << box.text;
    for (const std::string& button : box.buttons) out << " [" << button << ']';
    return out;
}

RunningProgram::Line::Line() {
    std::array<int, 2> ends{};
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) {
        throw std::system_error(errno, std::generic_category(), "socketpair");
    }
    ours = ends[0];
    theirs = ends[1];
}

RunningProgram::Line::~Line() {
    ::close(ours);
    if (theirs >= 0) ::close(theirs);
}

RunningProgram::RunningProgram(const Stage& stage, const Conditions& conditions)
    : process_(LaunchOf(stage, conditions, line_.theirs)) {
    ::close(line_.theirs);
    line_.theirs = -1;
}

std::vector<std::string> RunningProgram::Hear() {
    pollfd watched{line_.ours, POLLIN, 0};
    while (heard_.find('\n') == std::string::npos) {
        std::array<char, 4096> chunk{};
        if (::poll(&watched, 1, static_cast<int>(std::chrono::milliseconds(patience).count())) != 1)
            throw std::runtime_error("the program doesn't answer");
        const auto count = ::read(line_.ours, chunk.data(), chunk.size());
        if (count <= 0) throw std::runtime_error("the program has ended");
        heard_.append(chunk.data(), static_cast<std::size_t>(count));
    }
    const auto end = heard_.find('\n');
    const auto words = WireFields(heard_.substr(0, end));
    heard_.erase(0, end + 1);
    return words;
}

std::vector<std::string> RunningProgram::Order(const std::vector<std::string>& words) {
    const std::string line = WireLine(words);
    if (::send(line_.ours, line.data(), line.size(), MSG_NOSIGNAL) < 0) {
        throw std::runtime_error("the program has ended");
    }
    auto answer = Hear();
    if (answer.front() != "ok") throw std::runtime_error(words.front() + ": " + answer.back());
    answer.erase(answer.begin());
    return answer;
}

void RunningProgram::AwaitScreen(const std::string& name) {
    const auto shown = [&] { return std::ranges::count(Order({"screens"}), name) > 0; };
    if (!WaitUntil(shown, patience)) throw std::runtime_error("no screen " + name + " comes up");
}

void RunningProgram::AwaitNoScreen(const std::string& name) {
    const auto gone = [&] { return std::ranges::count(Order({"screens"}), name) == 0; };
    if (!WaitUntil(gone, patience)) throw std::runtime_error("the screen " + name + " stays up");
}

std::string RunningProgram::Get(const std::string& screen, const std::string& name,
                                const std::string& property) {
    return Order({"get", screen, name, property}).front();
}

void RunningProgram::Await(const std::string& screen, const std::string& name,
                           const std::string& property, const std::string& expected) {
    std::string found;
    const auto holds = [&] { return (found = Get(screen, name, property)) == expected; };
    if (WaitUntil(holds, patience)) return;
    throw std::runtime_error(property + " of " + name + " is " + found + ", not " + expected);
}

void RunningProgram::Choose(const std::string& screen, const std::string& entry) {
    Order({"choose", screen, entry});
}

void RunningProgram::Press(const std::string& screen, const std::string& button) {
    Order({"press", screen, button});
}

void RunningProgram::Type(const std::string& screen, const std::string& field,
                          const std::string& text) {
    Order({"type", screen, field, text});
}

void RunningProgram::Turn(const std::string& screen, const std::string& tabs,
                          const std::string& tab) {
    Order({"turn", screen, tabs, tab});
}

std::optional<MessageBox> RunningProgram::BoxUp() {
    const auto words = Order({"box"});
    if (words.empty()) return std::nullopt;
    return MessageBox{words[0], WithDatesMasked(words[1]), {words.begin() + 2, words.end()}};
}

MessageBox RunningProgram::AwaitBox() {
    std::optional<MessageBox> box;
    if (!WaitUntil([&] { return (box = BoxUp()).has_value(); }, patience)) {
        throw std::runtime_error("no box comes up");
    }
    return *box;
}

void RunningProgram::AwaitConnected(const std::function<void()>& beforeRetry) {
    constexpr int retries = 2;
    MessageBox box = AwaitBox();
    for (int i = 0; i < retries && box.text.starts_with("ORB-KL4 not found"); ++i) {
        beforeRetry();
        Answer("Retry");
        box = AwaitBox();
    }
    if (box != Telling("ORB-KL4 connection successful!")) throw std::runtime_error(box.text);
}

void RunningProgram::SaveAs(const std::string& path) {
    const auto dialogUp = [&] { return !Order({"dialog"}).empty(); };
    if (!WaitUntil(dialogUp, patience)) throw std::runtime_error("no file dialog comes up");
    Order({"file", path});
}

}  // namespace orbkl4::test
