#pragma once

#include "simulator/bytes.h"

#include <filesystem>

namespace orbkl4sim {

/// A pseudo terminal in raw mode that stands for a serial line. It goes with this object; a host
/// that has it open then sees a hang-up.
class PseudoTerminal {
  public:
    /// Throws std::system_error where the system gives none.
    PseudoTerminal();
    ~PseudoTerminal();
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;

    /// The device that a host opens.
    const std::filesystem::path& Path() const { return path_; }

    /// Readable when the host has sent something.
    int Descriptor() const { return sensorEnd_; }

    /// Readable when a host has opened or closed the device; -1 where the system can't tell.
    int WatchDescriptor() const { return watch_; }

    /// Takes off the exclusive mark that a host left on the device when it closed it or died.
    void ClearMarkIfClosed() const;

    /// The speed that the host has set, in bits a second; 0 where it has set none, -1 for one that
    /// no sensor knows.
    int HostBaud() const;

    /// What the host has sent, empty where there is nothing.
    Bytes Read() const;

    /// Sends `bytes` in one write; what the host leaves no room for is lost.
    void Write(const Bytes& bytes) const;

  private:
    void Open();
    void Close() noexcept;

    int sensorEnd_ = -1;
    int hostEnd_ = -1;  // kept open, or the sensor's end would fail whenever the host closes
    int watch_ = -1;
    std::filesystem::path path_;
};

}  // namespace orbkl4sim
