#pragma once

#include "simulator/arguments.h"
#include "simulator/geometry.h"

#include <array>
#include <cstdint>
#include <vector>

namespace orbkl4sim {

/// Addresses of the words that the simulator uses; a matrix or vector starts at the address given.
namespace address {
inline constexpr int kCaptureBiasSamples = 26;
inline constexpr int kBaudRate = 44;
inline constexpr int kAccelerationErrorGain = 124;
inline constexpr int kMagneticErrorGain = 126;
inline constexpr int kBiasTrackingGain = 128;
inline constexpr int kGyroGainScale = 130;
inline constexpr int kContinuousMode = 132;
inline constexpr int kSerialNumber = 134;
inline constexpr int kTareMatrix = 136;
inline constexpr int kIronMatrix = 154;
inline constexpr int kIronOffset = 172;
inline constexpr int kFirmwareVersion = 198;
inline constexpr int kAccGainScale = 230;
inline constexpr int kMagGainScale = 232;
inline constexpr int kTimer2Prescaler = 238;
inline constexpr int kTimer2Postscaler = 240;
inline constexpr int kTimer2Compare = 242;
inline constexpr int kTimerTicksInterval = 246;
}  // namespace address

inline constexpr NumberRange kAddressRange{"ADDRESS", 0, 254, NumberRange::Kind::kEven};
inline constexpr NumberRange kWordRange{"WORD", 0, 65535, NumberRange::Kind::kWhole};

/// The sensor's memory: 128 words of 16 bits at the even addresses 0 to 254.
class Eeprom {
  public:
    /// The factory defaults.
    Eeprom();

    /// Whether `wordAddress` is even and from 0 to 254.
    static bool Has(int wordAddress);

    /// The word at `wordAddress`; throws std::out_of_range if there is none.
    std::uint16_t Word(int wordAddress) const;

    /// Sets the word at `wordAddress`; throws std::out_of_range if there is none.
    void SetWord(int wordAddress, std::uint16_t word);

    /// Sets the word at `wordAddress` as the sensor does: a stuck word keeps its value.
    void Write(int wordAddress, std::uint16_t word);

    /// Lets the word at `wordAddress` keep its value in spite of `Write`, or ends that; throws
    /// std::out_of_range if there is none.
    void SetStuck(int wordAddress, bool stuck) { stuck_.at(Index(wordAddress)) = stuck; }

    /// The addresses of the stuck words.
    std::vector<int> Stuck() const;

    /// The matrix that starts at `wordAddress`, in units of 1/8192.
    Matrix3 Matrix(int wordAddress) const;

    /// Writes `matrix` to `wordAddress` and the addresses that follow.
    void SetMatrix(int wordAddress, const Matrix3& matrix);

    /// How many times a word was set; a new count means that the memory has to be saved.
    std::uint64_t Changes() const { return changes_; }

  private:
    static std::size_t Index(int wordAddress);

    std::array<std::uint16_t, 128> words_{};
    std::array<bool, 128> stuck_{};
    std::uint64_t changes_ = 0;
};

/// `value` rounded to a signed word and limited to its range.
std::uint16_t SignedWord(double value);

/// `word` as a signed number.
inline std::int16_t ToSigned(std::uint16_t word) { return static_cast<std::int16_t>(word); }

}  // namespace orbkl4sim
