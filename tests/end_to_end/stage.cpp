#include "stage.h"

#include "child_process.h"

#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <regex>
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

}  // namespace

Stage::Stage() : root_(NewFolder()) {
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

std::string WithDatesMasked(const std::string& text) {
    static const std::regex date(
        R"(Date: (0[1-9]|[12]\d|3[01])/(0[1-9]|1[0-2])/\d{4} (0[1-9]|1[0-2])(:[0-5]\d){2} [ap]m)");
    return std::regex_replace(text, date, "Date: D");
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
