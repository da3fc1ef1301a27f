#pragma once

#include "acquire/logic/packets.h"
#include "base/bytes.h"
#include "cli/search.h"
#include "link/logic/eeprom_address.h"
#include "state/app_state.h"
#include "state/sample_state.h"

#include <cstdint>
#include <string>

namespace orbkl4::cli {

/// What came of asking the sensor once.
struct Reply {
    enum class Kind : std::uint8_t { Good, Bad, None };
    Kind kind = Kind::None;
    Bytes bytes = {};              ///< the whole reply if it is good
    Clock::time_point received{};  ///< when its last byte was taken in
};

/// The conversation with one sensor. It works in continuous mode too, where it picks the replies
/// out of the samples. Everything throws `Failure::LineGone` if the line goes and `Interrupted`.
class Session {
  public:
    /// Finds the sensor that `choice` means; throws what `FindSensor` does.
    explicit Session(const SensorChoice& choice) : Session(FindSensor(choice)) {}
    explicit Session(FoundSensor sensor) : sensor_(std::move(sensor)) {}

    int SerialNumber() const { return sensor_.serialNumber; }
    const std::string& Firmware() const { return sensor_.firmware; }
    // A const session gives a const line.
    Line& SerialLine() { return *sensor_.line; }  // NOLINT(*-make-member-function-const)
    const Line& SerialLine() const { return *sensor_.line; }

    /// Sends `request` once and waits up to a second for its reply.
    Reply Ask(const Bytes& request);

    /// The reply to `request`, asked for up to three times; throws `Failure::NoAnswer` or
    /// `BadAnswer`.
    Bytes Exchange(const Bytes& request);

    /// The serial number as the sensor gives it now, by `Exchange`.
    int ReadSerialNumber();

    /// The word at `address`, 0 to 65535, by `Exchange`.
    int ReadWord(eeprom::Address address);

    /// Writes `word` (0 to 65535) at `address`, by `Exchange`; whether it took is the caller's to
    /// read back.
    void WriteWord(eeprom::Address address, int word);

    /// The three words that scale the sensor's vectors, by `Exchange`.
    GainScales ReadGainScales();

    /// How long one of the sensor's ticks lasts, in milliseconds, by `Exchange` of the four words
    /// that set it.
    double ReadTickInterval();

    /// Asks once for a sample and decodes it into `sample`; a reply that can't be decoded is bad.
    Reply TakeSample(const SamplePacket& packet, const GainScales& gainScales, Sample& sample);

    /// Has the sensor answer requests only: writes 0 for its continuous mode.
    void StopContinuousMode() { WriteWord(eeprom::continuousMode, 0); }

    /// Longer than an adapter holds bytes back, so that a pause means that the reply has ended.
    static constexpr std::chrono::milliseconds quietTime{50};

    /// Drops what comes until nothing has for `quiet`, so that a reply that comes late isn't taken
    /// for that to the next request; ends after the longer of `quiet` and 200 ms, as a sensor in
    /// continuous mode is never quiet.
    void AwaitQuiet(std::chrono::milliseconds quiet = quietTime);

  private:
    FoundSensor sensor_;
    Bytes request_;   ///< keeps its memory from sample to sample, as does
    Bytes received_;  ///< what the line brings after a request
};

}  // namespace orbkl4::cli
