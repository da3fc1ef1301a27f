#pragma once

#include "base/bytes.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace orbkl4 {

class MSComm;
class Screen;

/// The exchanges that find a sensor, set it to its defaults and read its identity. Each opens the
/// port control and closes it again. One in which an error occurs returns false without a message
/// and leaves the port as it is: where a line goes while it is open the port stays open, and every
/// later exchange fails too, as the number of an open port can't be changed.
class DeviceSearch {
  public:
    using ShowStep = std::function<void(const std::string& step)>;

    /// Works on the control `port` of `screen`; `showStep` is called with each step's text.
    DeviceSearch(MSComm& port, const Screen& screen, ShowStep showStep);

    /// The port number of the last test, 0 where it found no sensor.
    std::int16_t FoundPort() const { return foundPort_; }

    /// The speed of the last test in baud, empty where it found no sensor.
    const std::string& FoundBaud() const { return foundBaud_; }

    /// Whether port number `port` can be opened.
    bool PortExists(std::int16_t port);

    /// Whether a sensor on `port` sends its firmware version at `baud`; continuous output is
    /// stopped first.
    bool TestPortAtBaud(std::int16_t port, std::string_view baud);

    /// Reads the identity of the sensor at `AppState.CommPort` into `AppState` and warns of each
    /// gain scale that is unset; false where the replies aren't recognised. An error in opening or
    /// closing the port is reported.
    bool ReadDeviceIdentity();

    /// Writes the default settings on `port` at `baud` and reads no replies; true where the port
    /// could be used.
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
