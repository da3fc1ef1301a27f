#include "simulator/device.h"

#include "simulator/requests.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <stdexcept>
#include <string>
#include <utility>

namespace orbkl4sim {

namespace {

using namespace std::chrono_literals;

struct Speed {
    std::uint16_t code;
    int baud;
};

constexpr std::array kSpeeds{Speed{129, 19200}, Speed{64, 38400}, Speed{21, 115200}};
constexpr int kDefaultBaud = 38400;
constexpr Time kTimerCount = 100ns;

// A raw word is the middle of its range plus the value times its scale.
constexpr double kRawMiddle = 32768;
constexpr double kRawPerGauss = 12000;
constexpr double kRawPerG = 6000;
constexpr double kRawPerRadian = 3000;

// Bits of the self test command, and how far they shift the raw words.
constexpr unsigned kShiftGyrosDown = 1;
constexpr unsigned kShiftUp = 2;
constexpr unsigned kShiftMags = 4;
constexpr unsigned kReverseMags = 8;
constexpr double kGyroShift = 6000;
constexpr double kAccShift = 4000;
constexpr double kMagShift = 5000;

Vector3 All(double value) { return {value, value, value}; }

double MagShift(unsigned bits) {
    if ((bits & kShiftMags) == 0) return 0;
    return (bits & kReverseMags) != 0 ? -kMagShift : kMagShift;
}

double GyroShift(unsigned bits) {
    return ((bits & kShiftUp) != 0 ? kGyroShift : 0) -
           ((bits & kShiftGyrosDown) != 0 ? kGyroShift : 0);
}

}  // namespace

Device::Device(Motion motion, bool noisy, std::uint64_t seed)
    : environment_(std::move(motion), noisy, seed) {
    PowerUp(Time{});
}

void Device::PowerUp(Time now) {
    const auto* const speed =
        std::ranges::find(kSpeeds, memory_.Word(address::kBaudRate), &Speed::code);
    baud_ = speed == kSpeeds.end() ? kDefaultBaud : speed->baud;
    const auto factor = [this](int wordAddress, int highest) {
        return std::clamp<int>(memory_.Word(wordAddress), 1, highest);
    };
    cycle_ = kTimerCount * factor(address::kTimer2Prescaler, 16) *
             factor(address::kTimer2Postscaler, 16) * factor(address::kTimer2Compare, 256) *
             factor(address::kTimerTicksInterval, 100);
    poweredUp_ = now;
    selfTest_ = 0;
    gyroBias_ = {};
    range_.reset();
}

Time Device::NextCycle(Time time) const {
    return poweredUp_ + ((time - poweredUp_) / cycle_ + 1) * cycle_;
}

std::uint16_t Device::Ticks(Time time) const {
    return static_cast<std::uint16_t>(((time - poweredUp_) / cycle_) & 0xFFFF);
}

std::optional<std::uint8_t> Device::ContinuousCommand() const {
    const std::uint16_t word = memory_.Word(address::kContinuousMode);
    const auto command = static_cast<std::uint8_t>(word & 0xFFU);
    if (word > 0xFF || FindPacket(command) == nullptr) return std::nullopt;
    return command;
}

std::optional<Answer> Device::Handle(const Bytes& request, Time start) {
    if (!IsWellFormed(request)) return std::nullopt;
    const std::uint8_t command = request.front();
    if (FindPacket(command) != nullptr) {
        const Time ready = NextCycle(start);
        return Answer{DataReply(command, ready), ready};
    }
    if (command == 0x06) return CaptureBias(start);
    if (command == 0x41) return CollectHardIron(start);
    return Answer{ImmediateReply(request, start), start};
}

Bytes Device::ImmediateReply(const Bytes& request, Time time) {
    const std::uint8_t command = request.front();
    switch (command) {
        case 0x07: return Temperature(time);
        case 0x0F:
        case 0x11: return Tare(request, time);
        case 0x24: return WriteGains(request, time);
        case 0x25: return ReadGains(time);
        case 0x27: selfTest_ = request[1]; return {};
        case 0x28: return ReadWord(request, time);
        case 0x29: return WriteWord(request, time);
        case 0x40: return InitHardIron(time);
        case 0x42: return ComputeHardIron(request, time);
        case 0xF0: return Frame(command, {memory_.Word(address::kFirmwareVersion)});
        case 0xF1: return Frame(command, {memory_.Word(address::kSerialNumber)});
        default: return {};
    }
}

Bytes Device::DataReply(std::uint8_t command, Time time) {
    const Packet& packet = *FindPacket(command);
    std::vector<std::uint16_t> words = PayloadWords(packet, Measure(packet.instantaneous, time));
    words.push_back(Ticks(time));
    return Frame(command, words);
}

Sample Device::Measure(bool instantaneous, Time time) {
    const Reading reading = environment_.Read(time);
    const Quaternion tare = FromMatrix(memory_.Matrix(address::kTareMatrix));
    const double accShift = (selfTest_ & kShiftUp) != 0 ? kAccShift : 0;
    return {
        .rawField = reading.field * kRawPerGauss + All(kRawMiddle + MagShift(selfTest_)),
        .rawAcceleration = reading.acceleration * kRawPerG + All(kRawMiddle + accShift),
        .rawRate = reading.rate * kRawPerRadian + All(kRawMiddle + GyroShift(selfTest_)),
        .field = Corrected(reading.field),
        .acceleration = reading.acceleration,
        .rate = reading.rate - gyroBias_,
        .attitude = tare * (instantaneous ? reading.unfiltered : reading.attitude),
        .fieldScale = static_cast<double>(memory_.Word(address::kMagGainScale)),
        .accelerationScale = static_cast<double>(memory_.Word(address::kAccGainScale)),
        .rateScale = static_cast<double>(memory_.Word(address::kGyroGainScale)),
    };
}

/// Hard iron correction: the iron matrix times the field less the iron offset.
Vector3 Device::Corrected(const Vector3& field) const {
    const double unit = memory_.Word(address::kMagGainScale) / 32768000.0;
    const auto offset = [&](int axis) {
        return ToSigned(memory_.Word(address::kIronOffset + 2 * axis)) * unit;
    };
    const Vector3 shifted = field - Vector3{offset(0), offset(1), offset(2)};
    const Matrix3 m = memory_.Matrix(address::kIronMatrix);
    return {m[0] * shifted.x + m[3] * shifted.y + m[6] * shifted.z,
            m[1] * shifted.x + m[4] * shifted.y + m[7] * shifted.z,
            m[2] * shifted.x + m[5] * shifted.y + m[8] * shifted.z};
}

/// Averages the rates over the number of cycles stored in the memory; the sensor is busy until
/// then.
Answer Device::CaptureBias(Time start) {
    const int samples = memory_.Word(address::kCaptureBiasSamples);
    Vector3 sum;
    Time time = start;
    for (int sample = 0; sample < samples; ++sample) {
        time = NextCycle(time);
        sum = sum + environment_.Read(time).rate;
    }
    if (samples > 0) gyroBias_ = sum * (1.0 / samples);
    return {Confirm(0x06, time), time};
}

Bytes Device::Temperature(Time time) const {
    const double raw = (temperature_ / 100 + 0.5) / 5 * 65536;
    const auto word = static_cast<std::uint16_t>(std::clamp(std::round(raw), 0.0, 65535.0));
    return Frame(0x07, {word, Ticks(time)});
}

/// Sets the tare matrix so that the current attitude becomes zero, or removes it. The word of the
/// reply is the result, 0 for success.
Bytes Device::Tare(const Bytes& request, Time time) {
    const bool set = request.front() == 0x0F;
    const Quaternion tare = set ? Conjugate(environment_.Read(time).attitude) : Quaternion{};
    memory_.SetMatrix(address::kTareMatrix, ToMatrix(tare));
    return Frame(request.front(), {0});
}

Bytes Device::WriteGains(const Bytes& request, Time time) {
    memory_.Write(address::kAccelerationErrorGain, WordAt(request, 1));
    memory_.Write(address::kMagneticErrorGain, WordAt(request, 3));
    memory_.Write(address::kBiasTrackingGain, WordAt(request, 5));
    return Confirm(0x24, time);
}

Bytes Device::ReadGains(Time time) const {
    return Frame(0x25, {memory_.Word(address::kAccelerationErrorGain),
                        memory_.Word(address::kMagneticErrorGain),
                        memory_.Word(address::kBiasTrackingGain), Ticks(time)});
}

Bytes Device::ReadWord(const Bytes& request, Time time) const {
    if (!Eeprom::Has(request[2])) return {};
    return Frame(0x28, {memory_.Word(request[2]), Ticks(time)});
}

Bytes Device::WriteWord(const Bytes& request, Time time) {
    if (!Eeprom::Has(request[3])) return {};
    const std::uint16_t word = WordAt(request, 4);
    memory_.Write(request[3], word);
    return Frame(0x29, {word, Ticks(time)});  // confirmed even if the word is stuck
}

Bytes Device::InitHardIron(Time time) {
    range_.reset();
    for (int axis = 0; axis < 3; ++axis) memory_.Write(address::kIronOffset + 2 * axis, 0);
    return Confirm(0x40, time);
}

Answer Device::CollectHardIron(Time start) {
    const Time ready = NextCycle(start);
    const Vector3 field = environment_.Read(ready).field;
    range_ = Widened(range_, field);
    const double scale = memory_.Word(address::kMagGainScale);
    std::vector<std::uint16_t> words;
    for (const Vector3& vector : {field, range_->lowest, range_->highest}) {
        for (const double value : {vector.x, vector.y, vector.z}) {
            words.push_back(ScaledWord(value, scale));
        }
    }
    words.push_back(Ticks(ready));
    return {Frame(0x41, words), ready};
}

/// Computes the iron offset from the collected range; keeps the old one if nothing was collected.
Bytes Device::ComputeHardIron(const Bytes& request, Time time) {
    if (range_) {
        const bool circle = request[3] == 1;
        const double vertical = ToSigned(WordAt(request, 4)) / 1000.0;
        const Vector3 offset =
            circle ? OffsetFromCircle(*range_, vertical) : OffsetFromSphere(*range_);
        const double scale = memory_.Word(address::kMagGainScale);
        memory_.Write(address::kIronOffset, ScaledWord(offset.x, scale));
        memory_.Write(address::kIronOffset + 2, ScaledWord(offset.y, scale));
        memory_.Write(address::kIronOffset + 4, ScaledWord(offset.z, scale));
    }
    return Frame(0x42, {memory_.Word(address::kIronOffset), memory_.Word(address::kIronOffset + 2),
                        memory_.Word(address::kIronOffset + 4), Ticks(time)});
}

std::uint16_t BaudCode(int baud) {
    const auto* const speed = std::ranges::find(kSpeeds, baud, &Speed::baud);
    if (speed == kSpeeds.end()) {
        throw std::out_of_range("not a baud rate of the sensor: " + std::to_string(baud));
    }
    return speed->code;
}

}  // namespace orbkl4sim
