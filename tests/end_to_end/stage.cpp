#include "stage.h"

#include "child_process.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <string_view>
#include <system_error>
#include <unistd.h>

namespace fs = std::filesystem;

namespace orbkl4::test {

namespace {

fs::path NewFolder() {
    std::string name = (fs::temp_directory_path() / "orb-kl4-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) {
        throw std::system_error(errno, std::generic_category(), "mkdtemp");
    }
    return name;
}

/// A hard link is as good as a copy: the program looks for its folder under the name it ran as.
void Place(const fs::path& from, const fs::path& to) {
    std::error_code failed;
    fs::create_hard_link(from, to, failed);
    if (failed) fs::copy_file(from, to);
}

/// Takes away the locks of lines whose holders were killed: another user couldn't, and would find
/// a line that bears the same name in use.
void RemoveStaleLocks() {
    std::error_code ignored;
    for (const fs::path& folder : {fs::path("/var/lock"), fs::temp_directory_path()}) {
        for (const auto& entry : fs::directory_iterator(folder, ignored)) {
            if (!entry.path().filename().string().starts_with("LCK..pts_")) continue;
            const int holder = std::atoi(ContentOf(entry.path()).c_str());
            const bool gone = holder > 0 && ::kill(holder, 0) != 0 && errno == ESRCH;
            if (gone) fs::remove(entry.path(), ignored);
        }
    }
}

/// Whether `text` is a date and time in the log's form, of the last few minutes.
bool IsRecent(const std::string& text) {
    constexpr double fewMinutes = 600;
    std::tm time{};
    time.tm_isdst = -1;
    const char* const end = ::strptime(text.c_str(), "%d/%m/%Y %I:%M:%S ", &time);
    if (end == nullptr || std::string_view(end) != (text.ends_with("pm") ? "pm" : "am")) {
        return false;
    }
    std::array<char, 40> form{};
    std::strftime(form.data(), form.size(), "%d/%m/%Y %I:%M:%S ", &time);
    if (!text.starts_with(form.data())) return false;  // without its leading zeros
    if (text.ends_with("pm")) time.tm_hour += 12;
    const double age = std::difftime(std::time(nullptr), std::mktime(&time));
    return age >= 0 && age < fewMinutes;
}

}  // namespace

Stage::Stage() : root_(NewFolder()) {
    RemoveStaleLocks();
    for (const fs::path& folder : {Program().parent_path(), Config(), PluginFolder() / "generic"}) {
        fs::create_directories(folder);
    }
    Place(WORKBENCH_PROGRAM, Program());
    Place(SIMULATOR_PROGRAM, Simulator());
    Place(HAND_PLUGIN, PluginFolder() / "generic" / "libhand.so");
}

Stage::~Stage() {
    std::error_code ignored;
    fs::remove_all(root_, ignored);
    RemoveStaleLocks();
}

fs::path Stage::PortLink(int number) const {
    return Config() / "Kestrelmoor" / "ORB-KL4-RS232" / "ports" / std::to_string(number);
}

void Stage::LinkPort(int number, const fs::path& target) const {
    fs::create_directories(PortLink(number).parent_path());
    fs::remove(PortLink(number));
    fs::create_symlink(target, PortLink(number));
}

void Stage::StoreSettings(const std::string& lines) const {
    fs::create_directories(Settings().parent_path());
    std::ofstream(Settings()) << "[Startup]\n" << lines;
}

std::string Stage::ErrorLog() const { return WithDatesMasked(ContentOf(Logs() / "error.log")); }

void Stage::GiveTo(uid_t owner) const {
    for (const auto& entry : fs::recursive_directory_iterator(root_)) {
        // What is linked from the build tree stays ours.
        const bool linked = entry.is_regular_file() && entry.hard_link_count() > 1;
        if (!linked && ::lchown(entry.path().c_str(), owner, owner) != 0) {
            throw std::system_error(errno, std::generic_category(), entry.path().string());
        }
    }
    if (::chown(root_.c_str(), owner, owner) != 0) {
        throw std::system_error(errno, std::generic_category(), root_.string());
    }
}

std::string WithDatesMasked(std::string text) {
    constexpr std::size_t length = std::string_view("31/12/2024 11:59:59 pm").size();
    const std::string label = "Date: ";
    for (auto at = text.find(label); at != std::string::npos; at = text.find(label, at + 1)) {
        const auto start = at + label.size();
        if (IsRecent(text.substr(start, length))) text.replace(start, length, "D");
    }
    return text;
}

std::string LogRecord(const std::string& number, const std::string& source,
                      const std::string& screen, const std::string& description) {
    return "----------\r\n"
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
           "----------\r\n"
           "\r\n";
}

}  // namespace orbkl4::test
