#include "stage.h"

#include "child_process.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <string_view>
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
    constexpr std::size_t length = std::string_view("31/12/2024 11:59:59 pm").size();
    const std::string label = "Date: ";
    for (auto at = text.find(label); at != std::string::npos; at = text.find(label, at + 1)) {
        const auto start = at + label.size();
        if (IsRecent(text.substr(start, length))) text.replace(start, length, "D");
    }
    return text;
}

}  // namespace orbkl4::test
