#include "acquire/logic/packets.h"

#include "base/arithmetic.h"
#include "base/run_time_error.h"
#include "link/logic/words.h"
#include "state/app_state.h"

namespace orbkl4 {

namespace {

constexpr std::int32_t wordValues = 65536;
constexpr double gainDivisor = 32768000;  // 32768 times 1000
constexpr double degreesPerBit = 360.0 / 65536;
constexpr double unitWord = 8192;  // the word that stands for 1

/// Stores the word at `offset` of the packet in `field`, and gives it.
double StoreWord(const SampleField& field, std::size_t offset) {
    const double word = WordAt(AppState.CommandBytes, offset);
    field.In(SampleState) = word;
    return word;
}

/// Stores all words unconverted, and their sum with the header byte.
void StoreWords(const SamplePacket& packet, const PacketFrameFields& frame) {
    double sum = ByteAt(AppState.CommandBytes, 0);
    frame.header.In(SampleState) = sum;
    std::size_t offset = 1;
    for (const PacketWord& word : packet.words) {
        sum += StoreWord(word.field, offset);
        offset += 2;
    }
    sum += StoreWord(frame.ticks, offset);
    StoreWord(frame.checksum, offset + 2);
    frame.calcChecksum.In(SampleState) = ToInt32(sum) % wordValues;
}

double Converted(double word, Conversion conversion) {
    switch (conversion) {
        case Conversion::RawBits: return word;
        case Conversion::MagneticField:
            return RoundTo(AppState.MagGainScale * ToSigned16(word) / gainDivisor, 4);
        case Conversion::Acceleration:
            return RoundTo(AppState.AccGainScale * ToSigned16(word) / gainDivisor, 4);
        case Conversion::AngularRate:
            return RoundTo(AppState.GyroGainScale * ToSigned16(word) / gainDivisor, 4);
        case Conversion::Quaternion: return RoundTo(ToSigned16(word) / unitWord, 4);
        case Conversion::Angle: return RoundTo(degreesPerBit * ToSigned16(word), 1);
        case Conversion::UnsignedAngle: return RoundTo(degreesPerBit * word, 1);
        case Conversion::Matrix: return ToSigned16(word) / unitWord;
    }
    return word;
}

/// Divides the nine elements by their determinant; error 11 where that is 0.
void NormaliseMatrix(std::span<const PacketWord> elements) {
    const auto e = [&](std::size_t number) -> double& {
        return elements[number - 1].field.In(SampleState);
    };
    // Sums and products of 16-bit numbers over 8192: exact in a double, whatever the order.
    SampleState.MatrixDeterminant = e(5) * e(1) * e(9) + e(8) * e(4) * e(3) + e(7) * e(2) * e(6) -
                                    e(7) * e(5) * e(3) - e(8) * e(6) * e(1) - e(9) * e(4) * e(2);
    for (std::size_t number = 1; number <= elements.size(); ++number)
        e(number) = RoundTo(Divide(e(number), SampleState.MatrixDeterminant), 4);
}

void ConvertWords(const SamplePacket& packet) {
    for (const auto& [field, conversion] : packet.words) {
        double& number = field.In(SampleState);
        number = Converted(number, conversion);
    }
    if (packet.words.front().conversion == Conversion::Matrix) NormaliseMatrix(packet.words);
}

}  // namespace

bool Decode(const SamplePacket& packet) {
    try {
        const PacketFrameFields frame = SideFields(packet.side);
        StoreWords(packet, frame);
        if (frame.checksum.In(SampleState) != frame.calcChecksum.In(SampleState)) return false;
        ConvertWords(packet);
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

bool DecodeRawBits() { return Decode(PacketOf(DeviceCommand::CmdRawSensorBits)); }

bool DecodeGyroVectors() { return Decode(PacketOf(DeviceCommand::CmdGyroStabVectors)); }

bool DecodeInstantVectors() { return Decode(PacketOf(DeviceCommand::CmdInstantVectors)); }

bool DecodeGyroQuaternion() { return Decode(PacketOf(DeviceCommand::CmdGyroStabQuaternion)); }

bool DecodeInstantQuaternion() { return Decode(PacketOf(DeviceCommand::CmdInstantQuaternion)); }

bool DecodeGyroMatrix() { return Decode(PacketOf(DeviceCommand::CmdGyroStabMatrix)); }

bool DecodeInstantMatrix() { return Decode(PacketOf(DeviceCommand::CmdInstantMatrix)); }

bool DecodeGyroEuler() { return Decode(PacketOf(DeviceCommand::CmdGyroStabEuler)); }

bool DecodeInstantEuler() { return Decode(PacketOf(DeviceCommand::CmdInstantEuler)); }

bool DecodeEulerAccelRate() { return Decode(PacketOf(DeviceCommand::CmdEulerAccelRate)); }

bool DecodeGyroQuatVectors() { return Decode(PacketOf(DeviceCommand::CmdGyroStabQuatCompVectors)); }

bool DecodeInstantQuatVectors() {
    return Decode(PacketOf(DeviceCommand::CmdGyroStabQuatInstantVectors));
}

}  // namespace orbkl4
