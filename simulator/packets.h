#pragma once

#include "simulator/geometry.h"

#include <cstdint>
#include <span>
#include <vector>

namespace orbkl4sim {

/// A run of words in a data packet.
enum class Group { kRaw, kField, kAcceleration, kRate, kQuaternion, kMatrix, kEuler };

/// One data command: which words its reply carries before the ticks.
struct Packet {
    std::uint8_t command;
    bool instantaneous;  // its attitude is the one that trembles
    std::vector<Group> groups;
};

/// The packet of `command`; null where it is no data command.
const Packet* PacketOf(std::uint8_t command);

/// What a packet is made from; a scale is the thousandfold of a signed word's full scale.
struct Sample {
    Vector3 rawField;
    Vector3 rawAcceleration;
    Vector3 rawRate;  // these three as raw words from 0 to 65535
    Vector3 field;
    Vector3 acceleration;
    Vector3 rate;
    Quaternion attitude;
    double fieldScale = 0;
    double accelerationScale = 0;
    double rateScale = 0;
};

/// `value` as a word of a vector; 0 where the scale is 0.
std::uint16_t ScaledWord(double value, double scale);

/// The payload words of `packet`.
std::vector<std::uint16_t> PayloadOf(const Packet& packet, const Sample& sample);

}  // namespace orbkl4sim
