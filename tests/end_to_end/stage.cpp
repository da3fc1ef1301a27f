#include "stage.h"

#include "child_process.h"

#include <cerrno>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <regex>
#include <system_error>

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
    fs::create_directories(to.parent_path());
    fs::create_hard_link(from, to, failed);
    if (failed) fs::copy_file(from, to);
}

/// Whether `text`, a date and time in the log's form, is of the last few minutes.
bool IsRecent(const std::string& text) {
    constexpr double fewMinutes = 600;
    std::tm time{};
    time.tm_isdst = -1;
    if (::strptime(text.c_str(), "%d/%m/%Y %I:%M:%S %p", &time) == nullptr) return false;
    const double age = std::difftime(std::time(nullptr), std::mktime(&time));
    return age >= 0 && age < fewMinutes;
}

}  // namespace

Stage::Stage() : root_(NewFolder()) {
    fs::create_directories(Config());
    Place(WORKBENCH_PROGRAM, Program());
    Place(HAND_PLUGIN, PluginFolder() / "generic" / "libhand.so");
}

Stage::~Stage() {
    std::error_code ignored;
    fs::remove_all(root_, ignored);
}

void Stage::LinkPort(int number, const fs::path& target) const {
    const fs::path ports = Config() / "Kestrelmoor" / "ORB-KL4-RS232" / "ports";
    fs::create_directories(ports);
    fs::create_symlink(target, ports / std::to_string(number));
}

void Stage::StoreSettings(const std::string& lines) const {
    fs::create_directories(Settings().parent_path());
    std::ofstream(Settings()) << "[Startup]\n" << lines;
}

std::string Stage::ErrorLog() const { return WithDatesMasked(ContentOf(Logs() / "error.log")); }

std::string WithDatesMasked(std::string text) {
    static const std::regex form("Date: (\\d\\d/\\d\\d/\\d{4} \\d\\d:\\d\\d:\\d\\d [ap]m)");
    for (std::smatch date; std::regex_search(text, date, form);) {
        const char* const mask = IsRecent(date[1]) ? "D" : "not of the last few minutes";
        text = date.prefix().str() + "Date: " + mask + date.suffix().str();
    }
    return text;
}

}  // namespace orbkl4::test
