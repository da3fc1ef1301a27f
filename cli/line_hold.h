#pragma once

#include <optional>
#include <string>
#include <sys/types.h>

namespace orbkl4 {
struct PortDevice;
}

namespace orbkl4::cli {

/// Keeps a serial device for this program alone by a lock on it, and gives the driver's flags back
/// when it goes. The exclusive mark isn't set: the port object that opens the device does that.
class LineHold {
  public:
    /// Throws `Failure::NoLine` if there is no such device, `Denied` if this user may not
    /// open it, and `Busy` if another program holds it, by lock or by exclusive mark.
    explicit LineHold(const PortDevice& device);
    ~LineHold();
    LineHold(const LineHold&) = delete;
    LineHold& operator=(const LineHold&) = delete;

    /// The open device.
    int Handle() const { return handle_; }

  private:
    int handle_;
    std::optional<int> driverFlags_;  ///< as found; none if the driver has no such flags
};

/// Whether the driver of the open device `handle` has its low-latency flag set; none if it has no
/// such flag.
std::optional<bool> HasLowLatency(int handle);

/// A process that has a device open.
struct Holder {
    std::string name;
    pid_t id;
};

/// A process other than this one that has `device` open, as far as the system lets this user see.
std::optional<Holder> HolderOf(const std::string& device);

/// The error that names the holder of `device` if the system knows it.
[[noreturn]] void ThrowBusy(const std::string& device);

}  // namespace orbkl4::cli
