#pragma once

#include "simulator/geometry.h"

#include <cstdint>
#include <span>
#include <vector>

namespace orbkl4sim {

/// A group of consecutive words in a data packet.
enum class Group { kRaw, kField, kAcceleration, kRate, kQuaternion, kMatrix, kEuler };

/// A data command and the words in its reply before the ticks.
struct Packet {
    std::uint8_t command;
    bool instantaneous;  // its attitude isn't gyro-stabilized
    std::vector<Group> groups;
};

/// The packet of `command`; null if that is no data command.
const Packet* FindPacket(std::uint8_t command);

/// The values of all packets at one moment; a scale is 1000 times the full scale of a signed word.
struct Sample {
    Vector3 rawField;
    Vector3 rawAcceleration;
    Vector3 rawRate;       // these three are raw words from 0 to 65535
    Vector3 field;         // gauss
    Vector3 acceleration;  // g
    Vector3 rate;          // rad/s
    Quaternion attitude;
    double fieldScale = 0;
    double accelerationScale = 0;
    double rateScale = 0;
};

/// `value` as a word of a vector; 0 if `scale` is 0.
std::uint16_t ScaledWord(double value, double scale);

/// The payload words of `packet`.
std::vector<std::uint16_t> PayloadWords(const Packet& packet, const Sample& sample);

}  // namespace orbkl4sim
