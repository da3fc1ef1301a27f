#pragma once

#include "simulator/bytes.h"

#include <filesystem>

namespace orbkl4sim {

/// A pseudo terminal in raw mode that simulates a serial line. Destroying it hangs up the line for
/// a host that has it open.
class PseudoTerminal {
  public:
    /// Throws std::system_error if the system has none left.
    PseudoTerminal();
    ~PseudoTerminal();
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;

    /// The device that a host opens.
    const std::filesystem::path& Path() const { return path_; }

    /// Readable when the host has sent something.
    int Descriptor() const { return sensorEnd_; }

    /// Readable when a host has opened or closed the device; -1 if the system can't report that.
    int WatchDescriptor() const { return watch_; }

    /// Clears the exclusive mode (TIOCEXCL) that a host left behind when it closed the device or
    /// died.
    void ClearExclusiveIfClosed() const;

    /// The baud rate that the host has set; 0 if it has set none, -1 for one that no sensor has.
    int HostBaud() const;

    /// The bytes that the host has sent since the last call.
    Bytes Read() const;

    /// Sends `bytes` in one write; those beyond the host's buffer are lost.
    void Write(const Bytes& bytes) const;

  private:
    void Open();
    void Close() noexcept;

    int sensorEnd_ = -1;
    int hostEnd_ = -1;  // kept open, else reading fails while no host has it open
    int watch_ = -1;
    std::filesystem::path path_;
};

}  // namespace orbkl4sim
