#include "stage.h"

#include "child_process.h"

#include <QDateTime>
#include <QLocale>

#include <cstdlib>
#include <fstream>
#include <string_view>
#include <system_error>

namespace fs = std::filesystem;

namespace orbkl4::test {

namespace {

/// A hard link will do: the program finds its folder by the path it was started with.
void Place(const fs::path& from, const fs::path& to) {
    std::error_code failed;
    fs::create_directories(to.parent_path());
    fs::create_hard_link(from, to, failed);
    if (failed) fs::copy_file(from, to);
}

/// Whether `text` is a date and time of the last few minutes in the log's format.
bool IsRecent(const std::string& text) {
    constexpr qint64 fewMinutes = 600;
    const QString form = QStringLiteral("dd/MM/yyyy hh:mm:ss ap");
    const QString shown = QString::fromStdString(text);
    const QDateTime time = QLocale::c().toDateTime(shown, form);
    return QLocale::c().toString(time, form) == shown &&  // with its leading zeros
           std::abs(time.secsTo(QDateTime::currentDateTime())) < fewMinutes;
}

}  // namespace

Stage::Stage() {
    fs::create_directories(Config());
    Place(WORKBENCH_PROGRAM, Program());
    Place(DRIVER_PLUGIN, PluginFolder() / "generic" / "libdriver.so");
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
