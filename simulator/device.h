#pragma once

#include "simulator/bytes.h"
#include "simulator/eeprom.h"
#include "simulator/hard_iron.h"
#include "simulator/packets.h"
#include "simulator/surroundings.h"

#include <optional>

namespace orbkl4sim {

/// What the sensor answers, and when it has the answer ready.
struct Answer {
    Bytes reply;  // empty where the sensor does what it was told and says nothing
    Time ready;
};

/// The sensor behind its line: memory, commands, calibrations. It does no input or output, and
/// every time is told to it.
class Device {
  public:
    Device(Motion motion, bool noisy, std::uint64_t seed);

    Eeprom& Memory() { return memory_; }
    Surroundings& Place() { return surroundings_; }

    /// The temperature that the sensor measures, in degrees Celsius.
    void SetTemperature(double celsius) { temperature_ = celsius; }

    /// Switches the power on at `now`: takes over speed and calculation cycle from the memory and
    /// forgets what stands there not.
    void PowerUp(Time now);

    /// Carries out `request`, taken up at `taken`; none where it isn't one or its fixed bytes are
    /// wrong.
    std::optional<Answer> Handle(const Bytes& request, Time taken);

    /// The reply to the data command `command` with the sample of the cycle that ends at `time`.
    Bytes DataReply(std::uint8_t command, Time time);

    /// The data command that the sensor repeats by itself; none in polled mode.
    std::optional<std::uint8_t> ContinuousCommand() const;

    /// The end of the calculation cycle that is under way at `time`.
    Time NextCycle(Time time) const;

    /// How long a calculation cycle lasts.
    Time Cycle() const { return cycle_; }

    /// The speed of the line, in bits a second.
    int Baud() const { return baud_; }

    /// The counter of calculation cycles as it stands at `time`.
    std::uint16_t Ticks(Time time) const;

  private:
    Bytes Confirm(std::uint8_t command, Time time) const { return Frame(command, {Ticks(time)}); }
    Sample Measure(bool instantaneous, Time time);
    Vector3 Corrected(const Vector3& field) const;
    Answer CaptureBias(Time taken);
    Bytes Temperature(Time time) const;
    Bytes Tare(const Bytes& request, Time time);
    Bytes WriteGains(const Bytes& request, Time time);
    Bytes ReadGains(Time time) const;
    Bytes ReadWord(const Bytes& request, Time time) const;
    Bytes WriteWord(const Bytes& request, Time time);
    Bytes InitHardIron(Time time);
    Bytes CollectHardIron(Time time);
    Bytes ComputeHardIron(const Bytes& request, Time time);

    Eeprom memory_;
    Surroundings surroundings_;
    double temperature_ = 25;
    Time poweredUp_{};
    Time cycle_{};
    int baud_ = 0;
    unsigned selfTest_ = 0;
    Vector3 gyroBias_;  // the one captured, rad/s
    std::optional<FieldRange> range_;
};

/// The EEPROM code of a speed in bits a second; throws std::out_of_range where there is none.
std::uint16_t BaudCode(int baud);

}  // namespace orbkl4sim
