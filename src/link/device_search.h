#pragma once

#include "base/bytes.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace orbkl4 {

class MSComm;
class Screen;

/// The exchanges by which a sensor is found, set to its defaults and identified, on a port control
/// that is closed in between. None of them reports an error: one that fails answers false, and a
/// port that it had open stays open.
class DeviceSearch {
  public:
    using ShowStep = std::function<void(const std::string& step)>;

    /// A search on the control `port` of `screen`; `showStep` is told what is being tried.
    DeviceSearch(MSComm& port, const Screen& screen, ShowStep showStep);

    /// The port of the last test, 0 where that found no sensor.
    std::int16_t FoundPort() const { return foundPort_; }

    /// The speed of the last test in baud, empty where that found no sensor.
    const std::string& FoundBaud() const { return foundBaud_; }

    /// Whether port number `port` can be opened.
    bool PortExists(std::int16_t port);

    /// Whether a sensor on `port` gives its firmware version at `baud`; continuous output is
    /// stopped first.
    bool TestPortAtBaud(std::int16_t port, std::string_view baud);

    /// Reads the identity at `AppState`'s port into `AppState`, warns of each gain scale that is
    /// unset, and tells whether the replies were recognised.
    bool ReadDeviceIdentity();

    /// Writes the default settings on `port` at `baud` without looking for replies; true where the
    /// port could be used.
    bool ResetDeviceSettings(std::int16_t port, std::string_view baud);

  private:
    void OpenAt(std::int16_t port, std::string_view baud);
    void SendAndWait(const Bytes& request);
    void DropInput();

    MSComm& port_;
    const Screen& screen_;
    ShowStep showStep_;
    std::int16_t foundPort_ = 0;
    std::string foundBaud_;
};

}  // namespace orbkl4
