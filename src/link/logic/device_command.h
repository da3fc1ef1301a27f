#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace orbkl4 {

/// The sensor's commands: the first byte of every request, echoed as the first byte of its reply.
enum class DeviceCommand : std::uint8_t {
    CmdRawSensorBits = 0x01,
    CmdGyroStabVectors = 0x02,
    CmdInstantVectors = 0x03,
    CmdInstantQuaternion = 0x04,
    CmdGyroStabQuaternion = 0x05,
    CmdCaptureGyroBias = 0x06,
    CmdTemperature = 0x07,
    CmdInstantMatrix = 0x0A,
    CmdGyroStabMatrix = 0x0B,
    CmdGyroStabQuatCompVectors = 0x0C,
    CmdInstantEuler = 0x0D,
    CmdGyroStabEuler = 0x0E,
    CmdTare = 0x0F,
    CmdRemoveTare = 0x11,
    CmdGyroStabQuatInstantVectors = 0x12,
    CmdWriteSystemGains = 0x24,
    CmdReadSystemGains = 0x25,
    CmdSelfTest = 0x27,
    CmdReadEeprom = 0x28,
    CmdWriteEeprom = 0x29,
    CmdEulerAccelRate = 0x31,
    CmdHardIronInit = 0x40,
    CmdHardIronCollect = 0x41,
    CmdHardIronCompute = 0x42,
    CmdFirmwareVersion = 0xF0,
    CmdSerialNumber = 0xF1,
};

/// How one command looks on the line. A request is the command byte, `fixed`, the parameters and
/// `closing`, with no length and no checksum. A reply is the command byte, big-endian words and a
/// checksum word: the sum of all before it, modulo 65536. Where a reply carries the sensor's timer
/// ticks, they are its last word before the checksum.
struct CommandFormat {
    DeviceCommand command;
    std::size_t replyLength;                ///< of the whole frame; 0 where no reply is checked
    std::span<const std::uint8_t> fixed;    ///< constants that follow the command byte
    std::size_t parameters;                 ///< number of bytes that the sender chooses
    std::span<const std::uint8_t> closing;  ///< constants that end the request
    std::string_view contents;              ///< parameters -> words before the checksum
};

namespace detail {

using enum DeviceCommand;

template <std::size_t count>
using Fixed = std::array<std::uint8_t, count>;

inline constexpr Fixed<0> none{};
inline constexpr Fixed<1> zero{0x00};
inline constexpr Fixed<1> endOfWrite{0xAA};
inline constexpr Fixed<2> unlock{0x71, 0x3E};
inline constexpr Fixed<2> unlockWrite{0x71, 0x00};
inline constexpr Fixed<3> confirmTare{0xC1, 0xC3, 0xC5};

}  // namespace detail

/// All commands; acquire/logic/packets.h says what the words of the data commands mean.
inline constexpr auto commandFormats = [] {
    using namespace detail;
    return std::to_array<CommandFormat>({
        {CmdRawSensorBits, 23, none, 0, none, "-> 9 words, ticks"},
        {CmdGyroStabVectors, 23, none, 0, none, "-> 9 words, ticks"},
        {CmdInstantVectors, 23, none, 0, none, "-> 9 words, ticks"},
        {CmdInstantQuaternion, 13, none, 0, none, "-> 4 words, ticks"},
        {CmdGyroStabQuaternion, 13, none, 0, none, "-> 4 words, ticks"},
        {CmdCaptureGyroBias, 0, none, 0, none, "-> discarded"},
        {CmdTemperature, 7, none, 0, none, "-> temperature, ticks"},
        {CmdInstantMatrix, 23, none, 0, none, "-> 9 words, ticks"},
        {CmdGyroStabMatrix, 23, none, 0, none, "-> 9 words, ticks"},
        {CmdGyroStabQuatCompVectors, 31, none, 0, none, "-> 13 words, ticks"},
        {CmdInstantEuler, 11, none, 0, none, "-> 3 words, ticks"},
        {CmdGyroStabEuler, 11, none, 0, none, "-> 3 words, ticks"},
        {CmdTare, 5, confirmTare, 0, none, "-> ticks"},
        {CmdRemoveTare, 5, confirmTare, 0, none, "-> ticks"},
        {CmdGyroStabQuatInstantVectors, 31, none, 0, none, "-> 13 words, ticks"},
        {CmdWriteSystemGains, 5, none, 6, none, "three gains -> ticks"},
        {CmdReadSystemGains, 11, none, 0, none, "-> three gains, ticks"},
        {CmdSelfTest, 0, none, 1, none, "shift bits -> nothing"},
        {CmdReadEeprom, 7, zero, 1, none, "address -> value, ticks"},
        {CmdWriteEeprom, 7, unlockWrite, 3, endOfWrite,
         "address, high byte, low byte -> word, ticks"},
        {CmdEulerAccelRate, 23, none, 0, none, "-> 9 words, ticks"},
        {CmdHardIronInit, 5, unlock, 0, none, "-> ticks"},
        {CmdHardIronCollect, 23, none, 0, none, "-> field, minima, maxima, ticks"},
        {CmdHardIronCompute, 11, unlock, 3, none, "type, high byte, low byte -> offsets, ticks"},
        {CmdFirmwareVersion, 5, none, 0, none, "-> version, such as 3101 for 3.1.01"},
        {CmdSerialNumber, 5, none, 0, none, "-> serial number"},
    });
}();

/// The row of `command`.
constexpr const CommandFormat& FormatOf(DeviceCommand command) {
    std::size_t row = 0;
    while (commandFormats.at(row).command != command) ++row;
    return commandFormats.at(row);
}

/// The byte of `command` on the line.
constexpr std::uint8_t ByteOf(DeviceCommand command) { return static_cast<std::uint8_t>(command); }

/// The length of a reply to `command` in bytes; 0 where no reply is checked.
constexpr std::size_t ReplyLength(DeviceCommand command) { return FormatOf(command).replyLength; }

}  // namespace orbkl4
