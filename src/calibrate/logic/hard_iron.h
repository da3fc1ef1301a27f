#pragma once

#include "base/bytes.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace orbkl4 {

/// A hard iron reply in numbers: `count` values in gauss between the frame's own words.
template <std::size_t count>
struct HardIronReply {
    double header = 0;
    std::array<double, count> gauss{};
    double ticks = 0;
    double checksum = 0;
};

/// Field X, Y, Z, then their minima, then their maxima.
using HardIronCollected = HardIronReply<9>;

/// Offset X, Y, Z.
using HardIronComputed = HardIronReply<3>;

inline constexpr std::string_view twoDimensional = "2-D";
inline constexpr std::string_view threeDimensional = "3-D";

/// Whether a firmware text such as "3.0.05" is below 3.1 by its leading number.
bool RefusesHardIron(std::string_view firmwareText);

/// Whether a firmware number such as 3005 is below 3100; 0 is unknown and counts as below.
bool IsBelowHardIronFirmware(double firmwareNumber);

/// The request to compute, for a calibration type "2-D" or any other text and the field's vertical
/// magnitude in gauss; error 6 (overflow) beyond 16 bits of milligauss.
Bytes HardIronComputeRequest(std::string_view type, double magnitude);

/// The numbers of the 23-byte `reply` to a collection, with the gain scale of EEPROM word 232;
/// nothing for a bad checksum.
std::optional<HardIronCollected> DecodeHardIronCollectReply(const Bytes& reply,
                                                            double magGainScale);

/// The numbers of the 11-byte `reply` to a computation, likewise.
std::optional<HardIronComputed> DecodeHardIronComputeReply(const Bytes& reply, double magGainScale);

}  // namespace orbkl4
