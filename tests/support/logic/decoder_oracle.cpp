#include "support/logic/decoder_oracle.h"

#include "state/app_state.h"
#include "state/sample_state.h"

#include <cmath>
#include <cstdint>
#include <cstring>

namespace orbkl4 {

namespace {

SampleStateRecord& s = SampleState;

using Fields = std::vector<double*>;

Fields Elements(Sample::Matrix& matrix) {
    Fields elements;
    for (double& element : matrix) elements.push_back(&element);
    return elements;
}

Fields Joined(Fields first, const Fields& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

std::int64_t WordIn(const Bytes& packet, std::size_t index) {
    return packet[1 + 2 * index] * 256 + packet[2 + 2 * index];
}

std::int64_t SignedWordIn(const Bytes& packet, std::size_t index) {
    return static_cast<std::int16_t>(WordIn(packet, index));
}

/// The sum of the header and of all words but the last, modulo 65536.
std::int64_t Sum(const Bytes& packet) {
    std::int64_t sum = packet[0];
    for (std::size_t i = 0; 2 * i + 3 < packet.size(); ++i) sum += WordIn(packet, i);
    return sum % 65536;
}

bool SumHolds(const Bytes& packet) { return Sum(packet) == WordIn(packet, packet.size() / 2 - 1); }

/// The determinant of the nine words, in units of 8192 cubed.
std::int64_t Determinant(const Bytes& packet) {
    const auto m = [&](std::size_t row, std::size_t column) {
        return SignedWordIn(packet, 3 * column + row);
    };
    return m(0, 0) * (m(1, 1) * m(2, 2) - m(1, 2) * m(2, 1)) -
           m(0, 1) * (m(1, 0) * m(2, 2) - m(1, 2) * m(2, 0)) +
           m(0, 2) * (m(1, 0) * m(2, 1) - m(1, 1) * m(2, 0));
}

/// What a word of a kind comes to before rounding, times ten to the number of decimals.
long double ScaledNumber(char kind, const Bytes& packet, std::size_t index) {
    const auto word = static_cast<long double>(WordIn(packet, index));
    const auto number = static_cast<long double>(SignedWordIn(packet, index));
    switch (kind) {
        case 'm': return number * AppState.MagGainScale * 10 / 32768;
        case 'a': return number * AppState.AccGainScale * 10 / 32768;
        case 'g': return number * AppState.GyroGainScale * 10 / 32768;
        case 'q': return number * 10000 / 8192;
        case 'e': return number * 3600 / 65536;
        case 'u': return word * 3600 / 65536;
        case 'x':
            return number * 8192 * 8192 * 10000 / static_cast<long double>(Determinant(packet));
        default: return word;
    }
}

/// Whether `number` is `scaled` rounded to a whole number, over `scale`, but for a double's grain.
bool IsRounded(double number, long double scaled, long double scale) {
    const long double grain = 1e-9L + std::fabs(scaled) * 1e-15L;
    const long double shown = number * scale;
    return std::fabs(shown - scaled) <= 0.5L + grain &&
           std::fabs(shown - std::round(shown)) <= grain;
}

long double ScaleOf(char kind) {
    if (kind == 'r') return 1;
    return kind == 'e' || kind == 'u' ? 10 : 10000;
}

/// All numbers of `sample`, which holds nothing else.
std::vector<double> NumbersOf(const Sample& sample) {
    std::vector<double> numbers(sizeof sample / sizeof(double));
    std::memcpy(numbers.data(), &sample, sizeof sample);
    return numbers;
}

/// Fills the frame's fields of the side of `row` as they must be.
void FillFrame(const DecoderRow& row, const Bytes& packet) {
    const std::size_t words = row.kinds.size();
    const auto set = [&](double& gyro, double& instant, std::int64_t number) {
        (row.isGyro ? gyro : instant) = static_cast<double>(number);
    };
    set(s.HeaderGyro, s.HeaderInstant, packet[0]);
    set(s.TicksGyro, s.TicksInstant, WordIn(packet, words));
    set(s.ChecksumGyro, s.ChecksumInstant, WordIn(packet, words + 1));
    set(s.CalcChecksumGyro, s.CalcChecksumInstant, Sum(packet));
}

}  // namespace

const std::vector<DecoderRow>& DecoderRows() {
    static const Fields rawBits{&s.RawMag1,     &s.RawMag2,     &s.RawMag3,
                                &s.RawAcc1,     &s.RawAcc2,     &s.RawAcc3,
                                &s.RawAngRate1, &s.RawAngRate2, &s.RawAngRate3};
    static const Fields stabVectors{&s.StabMagX, &s.StabMagY, &s.StabMagZ,
                                    &s.StabAccX, &s.StabAccY, &s.StabAccZ};
    static const Fields instVectors{&s.InstMagX, &s.InstMagY, &s.InstMagZ,
                                    &s.InstAccX, &s.InstAccY, &s.InstAccZ};
    static const Fields instAcc{&s.InstAccX, &s.InstAccY, &s.InstAccZ};
    static const Fields compRates{&s.CompAngRateX, &s.CompAngRateY, &s.CompAngRateZ};
    static const Fields instRates{&s.InstAngRateX, &s.InstAngRateY, &s.InstAngRateZ};
    static const Fields stabQuat{&s.StabQuat0, &s.StabQuat1, &s.StabQuat2, &s.StabQuat3};
    static const Fields instQuat{&s.InstQuat0, &s.InstQuat1, &s.InstQuat2, &s.InstQuat3};
    static const Fields euler{&s.Roll, &s.Pitch, &s.Yaw};
    static const Fields compVectors = Joined(instVectors, compRates);
    static const Fields allInst = Joined(instVectors, instRates);
    static const std::vector<DecoderRow> rows = {
        {DecodeRawBits, 0x01, true, "rrrrrrrrr", rawBits},
        {DecodeGyroVectors, 0x02, true, "mmmaaaggg", Joined(stabVectors, compRates)},
        {DecodeInstantVectors, 0x03, false, "mmmaaaggg", allInst},
        {DecodeInstantQuaternion, 0x04, false, "qqqq", instQuat},
        {DecodeGyroQuaternion, 0x05, true, "qqqq", stabQuat},
        {DecodeInstantMatrix, 0x0A, false, "xxxxxxxxx", Elements(s.InstMatrix)},
        {DecodeGyroMatrix, 0x0B, true, "xxxxxxxxx", Elements(s.StabMatrix)},
        {DecodeGyroQuatVectors, 0x0C, true, "qqqqmmmaaaggg", Joined(stabQuat, compVectors)},
        {DecodeInstantEuler, 0x0D, false, "eee", euler},
        {DecodeGyroEuler, 0x0E, true, "eee", euler},
        {DecodeInstantQuatVectors, 0x12, false, "qqqqmmmaaaggg", Joined(instQuat, allInst)},
        {DecodeEulerAccelRate, 0x31, true, "eeuaaaggg", Joined(Joined(euler, instAcc), compRates)},
    };
    return rows;
}

bool IsGoodPacket(const DecoderRow& row, const Bytes& packet) {
    return SumHolds(packet) && (row.kinds.front() != 'x' || Determinant(packet) != 0);
}

std::string FaultOfDecoder(const DecoderRow& row, const Bytes& packet) {
    const std::string name = "command " + std::to_string(row.command) + ": ";
    const SampleStateRecord before = SampleState;
    AppState.CommandBytes = packet;
    const bool verdict = row.decode();
    const SampleStateRecord after = SampleState;

    std::vector<double> numbers;
    for (const double* field : row.fields) numbers.push_back(*field);
    SampleState = before;
    FillFrame(row, packet);
    const bool sumHolds = SumHolds(packet);
    const bool good = IsGoodPacket(row, packet);
    if (verdict != good) return name + "verdict";
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const char kind = good ? row.kinds[i] : sumHolds ? '-' : 'r';  // '-': torn off half-way
        if (kind != '-' && !IsRounded(numbers[i], ScaledNumber(kind, packet, i), ScaleOf(kind)))
            return name + "word " + std::to_string(i);
        *row.fields[i] = numbers[i];
    }
    if (row.kinds.front() == 'x' && sumHolds) {
        const double unit = 8192;
        s.MatrixDeterminant = static_cast<double>(Determinant(packet)) / unit / unit / unit;
    }
    const bool same = NumbersOf(SampleState) == NumbersOf(after);
    SampleState = after;
    return same ? "" : name + "a field of the frame, or one not its own";
}

}  // namespace orbkl4
