#include "simulator/port_link.h"

#include <cstdlib>
#include <stdexcept>
#include <string>
#include <unistd.h>
#include <utility>

namespace fs = std::filesystem;

namespace orbkl4sim {

namespace {

fs::path ConfigFolder() {
    const auto variable = [](const char* name) {
        const char* const text = std::getenv(name);  // NOLINT(concurrency-mt-unsafe)
        return fs::path(text == nullptr ? "" : text);
    };
    const fs::path home = variable("HOME");
#ifdef __APPLE__
    if (home.is_absolute()) return home / "Library" / "Preferences";
#else
    if (fs::path config = variable("XDG_CONFIG_HOME"); config.is_absolute()) return config;
    if (home.is_absolute()) return home / ".config";
#endif
    throw std::runtime_error("no configuration folder: HOME is not set");
}

/// Whether an existing `link` may be replaced: only simulators leave links to pseudo terminals.
bool IsReplaceable(const fs::path& link) {
    if (!fs::is_symlink(link)) return !fs::exists(fs::symlink_status(link));
    return !fs::exists(link) || fs::read_symlink(link).parent_path() == "/dev/pts";
}

}  // namespace

fs::path PortLinkPath(int number) {
    return ConfigFolder() / "Kestrelmoor" / "ORB-KL4-RS232" / "ports" / std::to_string(number);
}

PortLink::PortLink(fs::path link, fs::path device)
    : link_(std::move(link)), device_(std::move(device)) {
    if (link_.has_parent_path()) fs::create_directories(link_.parent_path());
    if (!IsReplaceable(link_)) {
        throw std::runtime_error(link_.string() + " is in the way and is left alone");
    }
    // Renaming replaces an old link in one step.
    fs::path fresh = link_;
    fresh += ".new" + std::to_string(getpid());
    fs::remove(fresh);
    fs::create_symlink(device_, fresh);
    fs::rename(fresh, link_);
}

PortLink::~PortLink() {
    std::error_code ignored;
    if (fs::read_symlink(link_, ignored) == device_) fs::remove(link_, ignored);
}

}  // namespace orbkl4sim
