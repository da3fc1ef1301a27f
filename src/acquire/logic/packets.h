#pragma once

#include "base/arithmetic.h"
#include "base/bytes.h"
#include "link/logic/device_command.h"
#include "link/logic/words.h"
#include "state/app_state.h"
#include "state/sample_fields.h"
#include "state/sample_state.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>

namespace orbkl4 {

/// Which header, ticks and checksum fields a packet fills.
enum class Side : std::uint8_t { Gyro, Instant };

/// How a word w becomes a field's value; s is w as a signed number.
enum class Conversion : std::uint8_t {
    RawBits,        ///< w as it stands
    MagneticField,  ///< `MagGainScale` s / 32768000, 4 decimals
    Acceleration,   ///< `AccGainScale` s / 32768000, 4 decimals
    AngularRate,    ///< `GyroGainScale` s / 32768000, 4 decimals
    Quaternion,     ///< s / 8192, 4 decimals
    Angle,          ///< 360 s / 65536 degrees, 1 decimal
    UnsignedAngle,  ///< 360 w / 65536 degrees, 1 decimal
    Matrix,         ///< s / 8192, then divided by the determinant of all nine, 4 decimals
};

/// One payload word: the field that it fills, and how it is converted.
struct PacketWord {
    SampleField field;
    Conversion conversion;
};

/// The reply to one data command: command byte, words, ticks word, checksum word.
struct SamplePacket {
    DeviceCommand command;
    std::size_t length;  ///< bytes of the whole reply
    Side side;
    std::span<const PacketWord> words;  ///< in packet order
};

/// The fields that every packet of a side fills.
struct PacketFrameFields {
    SampleField header, ticks, checksum, calcChecksum;
};

/// The frame's fields of `side`.
constexpr PacketFrameFields SideFields(Side side) {
    if (side == Side::Gyro)
        return {&Sample::HeaderGyro, &Sample::TicksGyro, &Sample::ChecksumGyro,
                &Sample::CalcChecksumGyro};
    return {&Sample::HeaderInstant, &Sample::TicksInstant, &Sample::ChecksumInstant,
            &Sample::CalcChecksumInstant};
}

namespace detail {

template <std::size_t count>
constexpr std::array<PacketWord, count> As(Conversion conversion,
                                           const fields::Group<count>& group) {
    return [&]<std::size_t... i>(std::index_sequence<i...>) {
        return std::array<PacketWord, count>{PacketWord{group[i], conversion}...};
    }
    (std::make_index_sequence<count>{});
}

using enum Conversion;
using fields::Joined;

inline constexpr auto stabQuat = As(Quaternion, fields::stabQuat);
inline constexpr auto instQuat = As(Quaternion, fields::instQuat);
inline constexpr auto stabMag = As(MagneticField, fields::stabMag);
inline constexpr auto instMag = As(MagneticField, fields::instMag);
inline constexpr auto stabAcc = As(Acceleration, fields::stabAcc);
inline constexpr auto instAcc = As(Acceleration, fields::instAcc);
inline constexpr auto compAngRate = As(AngularRate, fields::compAngRate);
inline constexpr auto instAngRate = As(AngularRate, fields::instAngRate);
inline constexpr auto rollPitch = As(Angle, fields::rollPitch);

inline constexpr auto rawBits =
    As(RawBits, Joined(fields::rawMag, fields::rawAcc, fields::rawAngRate));
inline constexpr auto stabVectors = Joined(stabMag, stabAcc, compAngRate);
inline constexpr auto instVectors = Joined(instMag, instAcc, instAngRate);
inline constexpr auto stabMatrix = As(Matrix, fields::stabMatrix);
inline constexpr auto instMatrix = As(Matrix, fields::instMatrix);
inline constexpr auto euler = Joined(rollPitch, As(Angle, fields::yaw));
/// Roll and pitch of this packet run from -180 to 180, its yaw from 0 to 360.
inline constexpr auto eulerAccelRate =
    Joined(rollPitch, As(UnsignedAngle, fields::yaw), instAcc, compAngRate);
/// Next to the stabilized quaternion come instantaneous vectors, but compensated rates.
inline constexpr auto quatCompVectors = Joined(stabQuat, instMag, instAcc, compAngRate);
inline constexpr auto quatInstVectors = Joined(instQuat, instMag, instAcc, instAngRate);

}  // namespace detail

/// The twelve packets.
inline constexpr std::array samplePackets = [] {
    using enum DeviceCommand;
    using namespace detail;
    return std::to_array<SamplePacket>({
        {CmdRawSensorBits, 23, Side::Gyro, rawBits},
        {CmdGyroStabVectors, 23, Side::Gyro, stabVectors},
        {CmdInstantVectors, 23, Side::Instant, instVectors},
        {CmdInstantQuaternion, 13, Side::Instant, instQuat},
        {CmdGyroStabQuaternion, 13, Side::Gyro, stabQuat},
        {CmdInstantMatrix, 23, Side::Instant, instMatrix},
        {CmdGyroStabMatrix, 23, Side::Gyro, stabMatrix},
        {CmdGyroStabQuatCompVectors, 31, Side::Gyro, quatCompVectors},
        {CmdInstantEuler, 11, Side::Instant, euler},
        {CmdGyroStabEuler, 11, Side::Gyro, euler},
        {CmdGyroStabQuatInstantVectors, 31, Side::Instant, quatInstVectors},
        {CmdEulerAccelRate, 23, Side::Gyro, eulerAccelRate},
    });
}();

static_assert(std::ranges::all_of(samplePackets,
                                  [](const SamplePacket& packet) {
                                      return packet.length == 5 + 2 * packet.words.size() &&
                                             packet.length == ReplyLength(packet.command);
                                  }),
              "a packet is its command byte, its words, ticks and checksum");

/// The packet that answers `command`, one of the twelve data commands.
constexpr const SamplePacket& PacketOf(DeviceCommand command) {
    std::size_t row = 0;
    while (samplePackets.at(row).command != command) ++row;
    return samplePackets.at(row);
}

/// A word times its gain scale, rounded to four decimals.
inline double ScaledWord(double word, double gainScale) {
    constexpr double divisor = 32768000;  // 32768 times 1000
    return RoundTo(gainScale * ToSigned16(word) / divisor, 4);
}

/// Decodes `reply`, whose length and header the caller has checked, into `sample`. False for a bad
/// checksum, and for any run-time error on the way; the payload fields then hold raw words.
bool Decode(const SamplePacket& packet, const Bytes& reply, const GainScales& gainScales,
            Sample& sample);

}  // namespace orbkl4
