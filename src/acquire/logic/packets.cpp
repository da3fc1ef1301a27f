#include "acquire/logic/packets.h"

#include "base/arithmetic.h"
#include "base/run_time_error.h"
#include "link/logic/words.h"

namespace orbkl4 {

namespace {

constexpr double degreesPerBit = 360.0 / wordValues;
constexpr double unitWord = 8192;  // the word that stands for 1

/// Stores all words unconverted, and their sum with the header byte.
void StoreWords(const SamplePacket& packet, const PacketFrameFields& frame, const Bytes& reply,
                Sample& sample) {
    std::size_t offset = 0;
    double sum = frame.header.In(sample) = ByteAt(reply, offset++);
    const auto store = [&](const SampleField& field) {
        const double word = field.In(sample) = WordAt(reply, offset);
        offset += 2;
        return word;
    };
    for (const PacketWord& word : packet.words) sum += store(word.field);
    sum += store(frame.ticks);
    store(frame.checksum);
    frame.calcChecksum.In(sample) = ToInt32(sum) % wordValues;
}

double Converted(double word, Conversion conversion, const GainScales& gainScales) {
    switch (conversion) {
        case Conversion::RawBits: return word;
        case Conversion::MagneticField: return ScaledWord(word, gainScales.MagGainScale);
        case Conversion::Acceleration: return ScaledWord(word, gainScales.AccGainScale);
        case Conversion::AngularRate: return ScaledWord(word, gainScales.GyroGainScale);
        case Conversion::Quaternion: return RoundTo(ToSigned16(word) / unitWord, 4);
        case Conversion::Angle: return RoundTo(degreesPerBit * ToSigned16(word), 1);
        case Conversion::UnsignedAngle: return RoundTo(degreesPerBit * word, 1);
        case Conversion::Matrix: return ToSigned16(word) / unitWord;
    }
    return word;
}

/// Divides the nine elements by their determinant; error 11 where that is 0.
void NormaliseMatrix(std::span<const PacketWord> elements, Sample& sample) {
    const auto e = [&](std::size_t number) -> double& {
        return elements[number - 1].field.In(sample);
    };
    // Sums and products of 16-bit numbers over 8192: exact in a double, whatever the order.
    sample.MatrixDeterminant = e(5) * e(1) * e(9) + e(8) * e(4) * e(3) + e(7) * e(2) * e(6) -
                               e(7) * e(5) * e(3) - e(8) * e(6) * e(1) - e(9) * e(4) * e(2);
    for (std::size_t number = 1; number <= elements.size(); ++number)
        e(number) = RoundTo(Divide(e(number), sample.MatrixDeterminant), 4);
}

void ConvertWords(const SamplePacket& packet, const GainScales& gainScales, Sample& sample) {
    for (const auto& [field, conversion] : packet.words) {
        double& number = field.In(sample);
        number = Converted(number, conversion, gainScales);
    }
    if (packet.words.front().conversion == Conversion::Matrix)
        NormaliseMatrix(packet.words, sample);
}

}  // namespace

bool Decode(const SamplePacket& packet, const Bytes& reply, const GainScales& gainScales,
            Sample& sample) {
    try {
        const PacketFrameFields frame = SideFields(packet.side);
        StoreWords(packet, frame, reply, sample);
        if (frame.checksum.In(sample) != frame.calcChecksum.In(sample)) return false;
        ConvertWords(packet, gainScales, sample);
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

}  // namespace orbkl4
