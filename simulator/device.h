#pragma once

#include "simulator/bytes.h"
#include "simulator/eeprom.h"
#include "simulator/environment.h"
#include "simulator/hard_iron.h"
#include "simulator/packets.h"

#include <optional>
#include <utility>

namespace orbkl4sim {

/// A reply and the time at which the sensor is ready to send it.
struct Answer {
    Bytes reply;  // empty for a command that has no reply
    Time ready;
};

/// The sensor without its serial line: memory, commands and calibrations. It does no input or
/// output and has no clock: the caller passes the time.
class Device {
  public:
    Device(Motion motion, bool noisy, std::uint64_t seed);

    Eeprom& Memory() { return memory_; }

    /// Sets how the sensor moves from now on.
    void SetMotion(Motion motion) { environment_.SetMotion(std::move(motion)); }

    /// Sets the temperature that the sensor measures, in degrees Celsius.
    void SetTemperature(double celsius) { temperature_ = celsius; }

    /// Switches the power on at `now`: loads baud rate and calculation cycle from the memory and
    /// drops all state that isn't stored there.
    void PowerUp(Time now);

    /// Carries out `request` from `start` on; nothing for an unknown command or wrong fixed bytes.
    std::optional<Answer> Handle(const Bytes& request, Time start);

    /// The reply to data command `command` with the sample of the cycle that ends at `time`.
    Bytes DataReply(std::uint8_t command, Time time);

    /// The data command that is repeated in continuous mode; none in polled mode.
    std::optional<std::uint8_t> ContinuousCommand() const;

    /// When the calculation cycle that runs at `time` ends.
    Time NextCycle(Time time) const;

    /// Duration of a calculation cycle.
    Time Cycle() const { return cycle_; }

    /// Baud rate of the line.
    int Baud() const { return baud_; }

    /// The 16-bit counter of calculation cycles at `time`.
    std::uint16_t Ticks(Time time) const;

  private:
    /// The reply to a command that is carried out at once.
    Bytes ImmediateReply(const Bytes& request, Time time);
    Bytes Confirm(std::uint8_t command, Time time) const { return Frame(command, {Ticks(time)}); }
    Sample Measure(bool instantaneous, Time time);
    Vector3 Corrected(const Vector3& field) const;
    Answer CaptureBias(Time start);
    Bytes Temperature(Time time) const;
    Bytes Tare(const Bytes& request, Time time);
    Bytes WriteGains(const Bytes& request, Time time);
    Bytes ReadGains(Time time) const;
    Bytes ReadWord(const Bytes& request, Time time) const;
    Bytes WriteWord(const Bytes& request, Time time);
    Bytes InitHardIron(Time time);
    Answer CollectHardIron(Time start);
    Bytes ComputeHardIron(const Bytes& request, Time time);

    Eeprom memory_;
    Environment environment_;
    double temperature_ = 25;
    Time poweredUp_{};
    Time cycle_{};
    int baud_ = 0;
    unsigned selfTest_ = 0;
    Vector3 gyroBias_;  // captured, rad/s
    std::optional<FieldRange> range_;
};

/// The EEPROM code of a baud rate; throws std::out_of_range for one that the sensor doesn't have.
std::uint16_t BaudCode(int baud);

}  // namespace orbkl4sim
