#include "running_program.h"

#include "wire_text.h"

#include <algorithm>
#include <stdexcept>

namespace orbkl4::test {

namespace {

std::string TextOf(const Reported& error) {
    return "Date: D\r\n"
           "Number: " +
           error.number + "\r\nSource: " + error.source + "\r\nScreen: " + error.screen +
           "\r\nDescription: " + error.description +
           "\r\nApplication: ORB-KL4 Data Acquisition and Display Software\r\n"
           "Version: 2.0.4\r\n";
}

}  // namespace

std::string Telling(const std::string& text) { return "[ORB-KL4][" + text + "][OK]"; }

std::string Reported::Box() const {
    return "[ORB-KL4][The error shown below has occurred!\r\n"
           "The data being generated at this time may have been corrupted.\r\n"
           "Please correct the error or contact Kestrelmoor for customer support.\r\n"
           "\r\n" +
           TextOf(*this) +
           "\r\n"
           "RETRY will allow application to continue.\r\n"
           "CANCEL will terminate application.\r\n"
           "][Retry][Cancel]";
}

std::string Reported::Record() const {
    return "----------\r\n" + TextOf(*this) + "----------\r\n\r\n";
}

RunningProgram::RunningProgram(const Stage& stage)
    : process_(stage.Program(), {},
               {{"QT_QPA_PLATFORM", "offscreen"},
                {"QT_PLUGIN_PATH", stage.PluginFolder()},
                {"QT_QPA_GENERIC_PLUGINS", "driver"},
                {"HOME", stage.Root()},
                {"XDG_RUNTIME_DIR", stage.Root()},
                {"XDG_CONFIG_HOME", stage.Config()},
                {"XDG_DATA_HOME", stage.UserData()}}) {}

std::vector<std::string> RunningProgram::Run(const std::vector<std::string>& words) {
    process_.Write(MessageOf(words));
    auto answer = FieldsOf(process_.ReadUpTo(messageEnd));
    if (answer.front() != "ok") throw std::runtime_error(words.front() + ": " + answer.back());
    answer.erase(answer.begin());
    return answer;
}

void RunningProgram::AwaitScreen(const std::string& name) {
    const auto shown = [&] { return std::ranges::count(Run({"screens"}), name) > 0; };
    if (!WaitUntil(shown)) throw std::runtime_error("no screen " + name + " comes up");
}

void RunningProgram::AwaitNoScreen(const std::string& name) {
    const auto gone = [&] { return std::ranges::count(Run({"screens"}), name) == 0; };
    if (!WaitUntil(gone)) throw std::runtime_error("the screen " + name + " stays up");
}

std::string RunningProgram::Get(const std::string& screen, const std::string& name,
                                const std::string& property) {
    return Run({"get", screen, name, property}).front();
}

void RunningProgram::Await(const std::string& screen, const std::string& name,
                           const std::string& property, const std::string& expected) {
    std::string found;
    const auto holds = [&] { return (found = Get(screen, name, property)) == expected; };
    if (WaitUntil(holds)) return;
    throw std::runtime_error(property + " of " + name + " is " + found + ", not " + expected);
}

std::string RunningProgram::BoxUp() {
    std::string box;
    for (const std::string& word : Run({"box"})) box += '[' + word + ']';
    return WithDatesMasked(box);
}

std::string RunningProgram::AwaitBox() {
    std::string box;
    const auto isUp = [&] { return !(box = BoxUp()).empty(); };
    if (!WaitUntil(isUp)) throw std::runtime_error("no box comes up");
    return box;
}

void RunningProgram::Search() {
    constexpr int retries = 9;
    AwaitScreen("Main");
    Choose("Main", "mnuConnect");
    AwaitScreen("Connect");
    Press("Connect", "cmdConnectAuto");
    std::string box = AwaitBox();
    for (int i = 0; i < retries && box.starts_with("[ORB-KL4][ORB-KL4 not found"); ++i) {
        Answer("Retry");
        box = AwaitBox();
    }
    if (box != Telling("ORB-KL4 connection successful!")) throw std::runtime_error(box);
}

void RunningProgram::SaveAs(const std::string& path) {
    const auto saved = [&] { return !Run({"file", path}).empty(); };
    if (!WaitUntil(saved)) throw std::runtime_error("no file dialog comes up");
}

}  // namespace orbkl4::test
