#include "support/logic/decoder_oracle.h"

#include "acquire/logic/packets.h"
#include "acquire/logic/sample_state.h"
#include "frame/logic/app_state.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace orbkl4 {

namespace {

SampleStateRecord& s = SampleState;

std::vector<double*> Elements(SampleStateRecord::Matrix& matrix) {
    std::vector<double*> elements;
    for (double& element : matrix) elements.push_back(&element);
    return elements;
}

struct FrameFields {
    double *header, *ticks, *checksum, *calcChecksum;
};

FrameFields FrameOf(bool isGyro) {
    if (isGyro) return {&s.HeaderGyro, &s.TicksGyro, &s.ChecksumGyro, &s.CalcChecksumGyro};
    return {&s.HeaderInstant, &s.TicksInstant, &s.ChecksumInstant, &s.CalcChecksumInstant};
}

std::int64_t WordIn(const Bytes& packet, std::size_t index) {
    return packet[1 + 2 * index] * 256 + packet[2 + 2 * index];
}

std::int64_t SignedWordIn(const Bytes& packet, std::size_t index) {
    return static_cast<std::int16_t>(WordIn(packet, index));
}

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
    constexpr long double tenThousandth = 10000;
    switch (kind) {
        case 'm': return number * AppState.MagGainScale / 32768 / 1000 * tenThousandth;
        case 'a': return number * AppState.AccGainScale / 32768 / 1000 * tenThousandth;
        case 'g': return number * AppState.GyroGainScale / 32768 / 1000 * tenThousandth;
        case 'q': return number / 8192 * tenThousandth;
        case 'e': return number * 3600 / 65536;
        case 'u': return word * 3600 / 65536;
        case 'x':
            return number * 8192 * 8192 * tenThousandth /
                   static_cast<long double>(Determinant(packet));
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

/// All numbers of `state`: they stand in one row, from the first header to the yaw.
std::vector<double> NumbersOf(const SampleStateRecord& state) {
    const std::size_t offset = offsetof(SampleStateRecord, HeaderGyro);
    const std::size_t end = offsetof(SampleStateRecord, Yaw) + sizeof(double);
    std::vector<double> numbers((end - offset) / sizeof(double));
    std::memcpy(numbers.data(), reinterpret_cast<const char*>(&state) + offset, end - offset);
    return numbers;
}

/// Fills the frame's fields of `side` as they must be, and gives the verdict on the checksum.
bool ExpectFrame(const FrameFields& frame, const Bytes& packet, std::size_t words) {
    std::int64_t sum = packet[0];
    for (std::size_t i = 0; i <= words; ++i) sum += WordIn(packet, i);
    *frame.header = packet[0];
    *frame.ticks = static_cast<double>(WordIn(packet, words));
    *frame.checksum = static_cast<double>(WordIn(packet, words + 1));
    *frame.calcChecksum = static_cast<double>(sum & 0xFFFF);
    return *frame.checksum == *frame.calcChecksum;
}

}  // namespace

const std::vector<DecoderRow>& DecoderRows() {
    static const std::vector<double*> euler{&s.Roll, &s.Pitch, &s.Yaw};
    static const std::vector<DecoderRow> rows = {
        {"raw bits",
         DecodeRawBits,
         0x01,
         true,
         "rrrrrrrrr",
         {&s.RawMag1, &s.RawMag2, &s.RawMag3, &s.RawAcc1, &s.RawAcc2, &s.RawAcc3, &s.RawAngRate1,
          &s.RawAngRate2, &s.RawAngRate3}},
        {"gyro vectors",
         DecodeGyroVectors,
         0x02,
         true,
         "mmmaaaggg",
         {&s.StabMagX, &s.StabMagY, &s.StabMagZ, &s.StabAccX, &s.StabAccY, &s.StabAccZ,
          &s.CompAngRateX, &s.CompAngRateY, &s.CompAngRateZ}},
        {"instant vectors",
         DecodeInstantVectors,
         0x03,
         false,
         "mmmaaaggg",
         {&s.InstMagX, &s.InstMagY, &s.InstMagZ, &s.InstAccX, &s.InstAccY, &s.InstAccZ,
          &s.InstAngRateX, &s.InstAngRateY, &s.InstAngRateZ}},
        {"instant quaternion",
         DecodeInstantQuaternion,
         0x04,
         false,
         "qqqq",
         {&s.InstQuat0, &s.InstQuat1, &s.InstQuat2, &s.InstQuat3}},
        {"gyro quaternion",
         DecodeGyroQuaternion,
         0x05,
         true,
         "qqqq",
         {&s.StabQuat0, &s.StabQuat1, &s.StabQuat2, &s.StabQuat3}},
        {"instant matrix", DecodeInstantMatrix, 0x0A, false, "xxxxxxxxx", Elements(s.InstMatrix)},
        {"gyro matrix", DecodeGyroMatrix, 0x0B, true, "xxxxxxxxx", Elements(s.StabMatrix)},
        {"gyro quaternion and vectors",
         DecodeGyroQuatVectors,
         0x0C,
         true,
         "qqqqmmmaaaggg",
         {&s.StabQuat0, &s.StabQuat1, &s.StabQuat2, &s.StabQuat3, &s.InstMagX, &s.InstMagY,
          &s.InstMagZ, &s.InstAccX, &s.InstAccY, &s.InstAccZ, &s.CompAngRateX, &s.CompAngRateY,
          &s.CompAngRateZ}},
        {"instant Euler", DecodeInstantEuler, 0x0D, false, "eee", euler},
        {"gyro Euler", DecodeGyroEuler, 0x0E, true, "eee", euler},
        {"instant quaternion and vectors",
         DecodeInstantQuatVectors,
         0x12,
         false,
         "qqqqmmmaaaggg",
         {&s.InstQuat0, &s.InstQuat1, &s.InstQuat2, &s.InstQuat3, &s.InstMagX, &s.InstMagY,
          &s.InstMagZ, &s.InstAccX, &s.InstAccY, &s.InstAccZ, &s.InstAngRateX, &s.InstAngRateY,
          &s.InstAngRateZ}},
        {"Euler, acceleration, rate",
         DecodeEulerAccelRate,
         0x31,
         true,
         "eeuaaaggg",
         {&s.Roll, &s.Pitch, &s.Yaw, &s.InstAccX, &s.InstAccY, &s.InstAccZ, &s.CompAngRateX,
          &s.CompAngRateY, &s.CompAngRateZ}},
    };
    return rows;
}

bool IsGoodPacket(const DecoderRow& row, const Bytes& packet) {
    const std::size_t words = row.kinds.size();
    std::int64_t sum = packet[0];
    for (std::size_t i = 0; i <= words; ++i) sum += WordIn(packet, i);
    if ((sum & 0xFFFF) != WordIn(packet, words + 1)) return false;
    return row.kinds.front() != 'x' || Determinant(packet) != 0;
}

bool IsNumberOf(const DecoderRow& row, const Bytes& packet, std::size_t index, double number) {
    const char kind = row.kinds.at(index);
    return IsRounded(number, ScaledNumber(kind, packet, index), ScaleOf(kind));
}

std::string FaultOfDecoder(const DecoderRow& row, const Bytes& packet) {
    const std::size_t words = row.kinds.size();
    const SampleStateRecord before = SampleState;
    AppState.CommandBytes = packet;
    const bool verdict = row.decode();
    const SampleStateRecord after = SampleState;

    std::vector<double> numbers;
    for (const double* field : row.fields) numbers.push_back(*field);
    SampleState = before;
    const bool sumHolds = ExpectFrame(FrameOf(row.isGyro), packet, words);
    const bool isMatrix = row.kinds.front() == 'x';
    const bool good = sumHolds && !(isMatrix && Determinant(packet) == 0);
    if (verdict != good) return std::string(row.name) + ": verdict";
    for (std::size_t i = 0; i < words; ++i) {
        const char kind = good ? row.kinds[i] : sumHolds ? '-' : 'r';  // '-': torn off half-way
        if (kind != '-' && !IsRounded(numbers[i], ScaledNumber(kind, packet, i), ScaleOf(kind)))
            return std::string(row.name) + ": word " + std::to_string(i);
        *row.fields[i] = numbers[i];
    }
    if (isMatrix && sumHolds) {
        const double unit = 8192;
        SampleState.MatrixDeterminant =
            static_cast<double>(Determinant(packet)) / unit / unit / unit;
    }
    const bool same = NumbersOf(SampleState) == NumbersOf(after);
    SampleState = after;
    return same ? "" : std::string(row.name) + ": a field of the frame, or one not its own";
}

}  // namespace orbkl4
