#pragma once

#include "acquire/logic/packets.h"
#include "state/sample_fields.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace orbkl4 {

/// The seven kinds of data file; one of each view.
enum class FileKind : std::uint8_t {
    SensorBits,
    Vectors,
    Quaternions,
    Matrix,
    Angles,
    QuatVecs,
    AnglesAccRateVector,
};

/// One column: its title, and the field that a row of either side takes. Kinds that only the gyro
/// side has name the same field twice.
struct FileColumn {
    std::string_view title;
    SampleField gyro, instant;
};

/// One kind of file: its text in line 4, its row writer's name in the error log, and its columns
/// between the time and the ticks.
struct FileKindRow {
    FileKind kind;
    std::string_view text;
    std::string_view writer;
    std::span<const FileColumn> columns;
};

namespace detail {

template <std::size_t count>
constexpr std::array<FileColumn, count> Columns(const std::array<std::string_view, count>& titles,
                                                const fields::Group<count>& gyro,
                                                const fields::Group<count>& instant) {
    return [&]<std::size_t... i>(std::index_sequence<i...>) {
        return std::array<FileColumn, count>{FileColumn{titles[i], gyro[i], instant[i]}...};
    }
    (std::make_index_sequence<count>{});
}

using Titles3 = std::array<std::string_view, 3>;
inline constexpr Titles3 magTitles{"MagX", "MagY", "MagZ"};
inline constexpr Titles3 accTitles{"AccX", "AccY", "AccZ"};
inline constexpr Titles3 rateTitles{"AngRateX", "AngRateY", "AngRateZ"};

inline constexpr auto sensorBitsColumns =
    Joined(Columns({"Mag1", "Mag2", "Mag3"}, fields::rawMag, fields::rawMag),
           Columns({"Acc1", "Acc2", "Acc3"}, fields::rawAcc, fields::rawAcc),
           Columns({"AngRate1", "AngRate2", "AngRate3"}, fields::rawAngRate, fields::rawAngRate));
inline constexpr auto vectorsColumns =
    Joined(Columns(magTitles, fields::stabMag, fields::instMag),
           Columns(accTitles, fields::stabAcc, fields::instAcc),
           Columns(rateTitles, fields::compAngRate, fields::instAngRate));
inline constexpr auto quaternionsColumns =
    Columns({"Quat0", "Quat1", "Quat2", "Quat3"}, fields::stabQuat, fields::instQuat);
inline constexpr auto matrixColumns =
    Columns({"M11", "M21", "M31", "M12", "M22", "M32", "M13", "M23", "M33"}, fields::stabMatrix,
            fields::instMatrix);
inline constexpr auto rollPitchColumns =
    Columns({"Roll", "Pitch"}, fields::rollPitch, fields::rollPitch);
inline constexpr auto yawColumn = Columns({"Yaw"}, fields::yaw, fields::yaw);
inline constexpr std::array anglesColumns{rollPitchColumns[1], yawColumn[0], rollPitchColumns[0]};
inline constexpr auto quatVecsColumns =
    Joined(quaternionsColumns, Columns(magTitles, fields::instMag, fields::instMag),
           Columns(accTitles, fields::instAcc, fields::instAcc),
           Columns(rateTitles, fields::compAngRate, fields::instAngRate));
inline constexpr auto anglesAccRateColumns =
    Joined(rollPitchColumns, yawColumn, Columns(accTitles, fields::instAcc, fields::instAcc),
           Columns(rateTitles, fields::compAngRate, fields::compAngRate));

}  // namespace detail

/// All kinds, in the order of `FileKind`.
inline constexpr std::array fileKinds = [] {
    using namespace detail;
    using enum FileKind;
    return std::to_array<FileKindRow>({
        {SensorBits, "Sensor Bits", "WriteSensorBitsToFile", sensorBitsColumns},
        {Vectors, "Vectors", "WriteVectorsToFile", vectorsColumns},
        {Quaternions, "Quaternions", "WriteQuaternionsToFile", quaternionsColumns},
        {Matrix, "Matrix", "WriteMatrixToFile", matrixColumns},
        {Angles, "Angles", "WriteAnglesToFile", anglesColumns},
        {QuatVecs, "QuatVecs", "WriteQuatVecsToFile", quatVecsColumns},
        {AnglesAccRateVector, "AnglesAccRateVector", "WriteAnglesAccRateVectorsToFile",
         anglesAccRateColumns},
    });
}();

static_assert(
    [] {
        for (std::size_t row = 0; row < fileKinds.size(); ++row)
            if (fileKinds.at(row).kind != static_cast<FileKind>(row)) return false;
        return true;
    }(),
    "the kind is the row's number");

/// The row of `kind`.
constexpr const FileKindRow& RowOf(FileKind kind) {
    return fileKinds.at(static_cast<std::size_t>(kind));
}

/// The first five lines of a file, without line ends; only four for an unknown `kind` text.
/// `version` is the program's, `date` and `time` are texts in the system's form.
std::vector<std::string> FileHeader(std::string_view kind, std::string_view version,
                                    std::string_view date, std::string_view time);

/// Makes `row` the row of `side` of `sample`, without line end; it keeps its memory from row to
/// row.
void FormatFileRow(FileKind kind, Side side, const Sample& sample, std::string_view timeText,
                   std::string& row);

}  // namespace orbkl4
