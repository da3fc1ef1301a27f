#pragma once

#include "simulator/bytes.h"

#include <chrono>
#include <filesystem>

namespace orbkl4sim {

/// The host's end of a serial line, by plain system calls.
class HostLine {
  public:
    /// Opens `device` at `baud`; 0 leaves the speed as it stands.
    explicit HostLine(const std::filesystem::path& device, int baud = 0);
    ~HostLine();
    HostLine(const HostLine&) = delete;
    HostLine& operator=(const HostLine&) = delete;

    int Descriptor() const { return descriptor_; }

    void SetBaud(int baud) const;
    void Send(const Bytes& bytes) const;

    /// Bytes as they come until there are `count`, or `limit` has passed.
    Bytes Receive(std::size_t count, std::chrono::milliseconds limit) const;

    /// What one read gives, within `limit`.
    Bytes ReceiveOnce(std::chrono::milliseconds limit) const;

    /// The answer of `count` bytes to `request`; fewer where they don't come in time.
    Bytes Ask(const Bytes& request, std::size_t count) const;

    /// Whether the line hangs up within `limit`.
    bool HangsUp(std::chrono::milliseconds limit) const;

  private:
    int descriptor_;
};

}  // namespace orbkl4sim
