#include "simulator/packets.h"

#include "simulator/eeprom.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace orbkl4sim {

namespace {

using enum Group;

const std::array kPackets{
    Packet{0x01, false, {kRaw}},
    Packet{0x02, false, {kField, kAcceleration, kRate}},
    Packet{0x03, true, {kField, kAcceleration, kRate}},
    Packet{0x04, true, {kQuaternion}},
    Packet{0x05, false, {kQuaternion}},
    Packet{0x0A, true, {kMatrix}},
    Packet{0x0B, false, {kMatrix}},
    Packet{0x0C, false, {kQuaternion, kField, kAcceleration, kRate}},
    Packet{0x0D, true, {kEuler}},
    Packet{0x0E, false, {kEuler}},
    Packet{0x12, true, {kQuaternion, kField, kAcceleration, kRate}},
    Packet{0x31, false, {kEuler, kAcceleration, kRate}},
};

constexpr double kUnitWord = 8192;  // 1 in a quaternion or a matrix

std::uint16_t RawWord(double raw) {
    return static_cast<std::uint16_t>(std::clamp(std::round(raw), 0.0, 65535.0));
}

/// The full circle is 65536, so -180 and 180 degrees are the same word.
std::uint16_t AngleWord(double degrees) {
    return static_cast<std::uint16_t>(std::lround(degrees * 65536 / 360) & 0xFFFF);
}

/// Appends the words of groups to `words`.
class Appender {
  public:
    Appender(const Sample& sample, std::vector<std::uint16_t>& words)
        : sample_(sample), words_(words) {}

    void Append(Group group) {
        switch (group) {
            case kRaw:
                Each(sample_.rawField, RawWord);
                Each(sample_.rawAcceleration, RawWord);
                Each(sample_.rawRate, RawWord);
                break;
            case kField: Vector(sample_.field, sample_.fieldScale); break;
            case kAcceleration: Vector(sample_.acceleration, sample_.accelerationScale); break;
            case kRate: Vector(sample_.rate, sample_.rateScale); break;
            case kQuaternion: AppendQuaternion(); break;
            case kMatrix:
                for (const double element : ToMatrix(sample_.attitude)) {
                    words_.push_back(SignedWord(element * kUnitWord));
                }
                break;
            case kEuler:
                const Euler angles = ToEuler(sample_.attitude);
                Each({angles.roll, angles.pitch, angles.yaw}, AngleWord);
                break;
        }
    }

  private:
    template <typename ToWord>
    void Each(const Vector3& vector, ToWord toWord) {
        for (const double value : {vector.x, vector.y, vector.z}) words_.push_back(toWord(value));
    }

    void Vector(const Vector3& vector, double scale) {
        Each(vector, [scale](double value) { return ScaledWord(value, scale); });
    }

    /// Of the two quaternions of an attitude, the sensor sends the one with q0 >= 0.
    void AppendQuaternion() {
        const Quaternion& q = sample_.attitude;
        const double unit = q.w < 0 ? -kUnitWord : kUnitWord;
        for (const double value : {q.w, q.x, q.y, q.z}) words_.push_back(SignedWord(value * unit));
    }

    const Sample& sample_;
    std::vector<std::uint16_t>& words_;
};

}  // namespace

const Packet* FindPacket(std::uint8_t command) {
    const auto* const packet = std::ranges::find(kPackets, command, &Packet::command);
    return packet == kPackets.end() ? nullptr : &*packet;
}

std::uint16_t ScaledWord(double value, double scale) {
    return scale == 0 ? std::uint16_t{0} : SignedWord(value * 32768000 / scale);
}

std::vector<std::uint16_t> PayloadWords(const Packet& packet, const Sample& sample) {
    std::vector<std::uint16_t> words;
    words.reserve(16);
    Appender appender(sample, words);
    for (const Group group : packet.groups) appender.Append(group);
    return words;
}

}  // namespace orbkl4sim
