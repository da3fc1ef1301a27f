#include "cli/line_hold.h"

#include "base/number_text.h"
#include "cli/error.h"
#include "platform/system/port_device.h"

#include <cerrno>
#include <climits>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>
#ifdef __linux__
#include <linux/serial.h>
#endif

namespace orbkl4::cli {

namespace {

namespace fs = std::filesystem;

void RequireUse(const PortDevice& device) {
    const std::string name = device.name.toStdString();
    if (!device.present) {
        throw CliError(Failure::NoLine, "there is no serial line at " + name,
                       "plug the sensor in, or list the lines with \"orb-kl4 ports\"");
    }
    if (device.permitted) return;
    const std::string group = device.group.toStdString();
    throw CliError(Failure::Denied, "no permission to use " + name,
                   group.empty() ? "ask the administrator for the right to use it"
                                 : "join the group \"" + group + "\" (sudo usermod -aG " + group +
                                       " $USER) and log in again");
}

int Opened(const std::string& name) {
    const int handle = ::open(name.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (handle >= 0) return handle;
    if (errno == EBUSY) ThrowBusy(name);
    throw CliError(Failure::NoLine, name + " can't be opened: " + std::strerror(errno));
}

/// Whether another program has marked the line as its own; the super-user can open it all the same.
bool IsMarkedExclusive([[maybe_unused]] int handle) {
    int mark = 0;
#ifdef TIOCGEXCL
    ::ioctl(handle, TIOCGEXCL, &mark);
#endif
    return mark != 0;
}

std::optional<int> DriverFlags([[maybe_unused]] int handle) {
#ifdef __linux__
    serial_struct serial{};
    if (::ioctl(handle, TIOCGSERIAL, &serial) == 0) return serial.flags;
#endif
    return std::nullopt;
}

void SetDriverFlags([[maybe_unused]] int handle, [[maybe_unused]] int flags) {
#ifdef __linux__
    serial_struct serial{};
    if (::ioctl(handle, TIOCGSERIAL, &serial) != 0 || serial.flags == flags) return;
    serial.flags = flags;
    ::ioctl(handle, TIOCSSERIAL, &serial);
#endif
}

/// Whether the process has `device` open itself. The far end of a pseudo terminal doesn't count:
/// who made the terminal may have both ends open.
bool HasOpen(const fs::path& process, const fs::path& device) {
    std::error_code ignored;
    bool has = false;
    for (const auto& entry : fs::directory_iterator(process / "fd", ignored)) {
        const fs::path target = fs::read_symlink(entry.path(), ignored);
        if (target.filename() == "ptmx") return false;
        has = has || target == device;
    }
    return has;
}

}  // namespace

LineHold::LineHold(const PortDevice& device) {
    RequireUse(device);
    const std::string name = device.name.toStdString();
    handle_ = Opened(name);
    if (::isatty(handle_) == 0) {
        ::close(handle_);
        throw CliError(Failure::NoLine, name + " is no serial line");
    }
    if (IsMarkedExclusive(handle_) || ::flock(handle_, LOCK_EX | LOCK_NB) != 0) {
        ::close(handle_);
        ThrowBusy(name);
    }
    driverFlags_ = DriverFlags(handle_);
}

LineHold::~LineHold() {
    if (driverFlags_) SetDriverFlags(handle_, *driverFlags_);
    ::close(handle_);
}

std::optional<bool> HasLowLatency([[maybe_unused]] int handle) {
#ifdef __linux__
    if (const auto flags = DriverFlags(handle)) return (*flags & ASYNC_LOW_LATENCY) != 0;
#endif
    return std::nullopt;
}

std::optional<Holder> HolderOf(const std::string& device) {
    std::error_code ignored;
    for (const auto& process : fs::directory_iterator("/proc", ignored)) {
        const auto id = WholeNumber(process.path().filename().string(), 1, INT_MAX);
        if (!id || *id == ::getpid() || !HasOpen(process.path(), device)) continue;
        std::string name;
        std::getline(std::ifstream(process.path() / "comm"), name);
        return Holder{name, *id};
    }
    return std::nullopt;
}

void ThrowBusy(const std::string& device) {
    const auto holder = HolderOf(device);
    if (!holder) {
        throw CliError(Failure::Busy, device + " is in use by another program",
                       "end the program that uses it");
    }
    const std::string who = holder->name + " (process " + std::to_string(holder->id) + ")";
    throw CliError(Failure::Busy, device + " is in use by " + who, "end " + who);
}

}  // namespace orbkl4::cli
