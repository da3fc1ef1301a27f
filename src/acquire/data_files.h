#pragma once

#include "acquire/logic/file_kinds.h"

#include <string_view>

namespace orbkl4 {

class Screen;

/// Asks by the `CommonDialog1` of `screen` for a file of the kind text `kind` and begins it with
/// its header. Any error, Cancel among them, ends it silently; Cancel leaves `DataFileName` as it
/// is.
void CreateDataFile(const Screen& screen, std::string_view kind);

/// The row writer of one kind of file under its own name.
struct RowWriter {
    FileKind kind;

    /// Appends one row of `side` of `SampleState` to `AppState.DataFileName`, whole or not at all;
    /// an error is reported under the writer's name. `timeText` is the time without blanks.
    void operator()(Side side, std::string_view timeText) const;

    /// The same for a kind that has the gyro side alone.
    void operator()(std::string_view timeText) const { (*this)(Side::Gyro, timeText); }
};

inline constexpr RowWriter WriteSensorBitsToFile{FileKind::SensorBits};
inline constexpr RowWriter WriteVectorsToFile{FileKind::Vectors};
inline constexpr RowWriter WriteQuaternionsToFile{FileKind::Quaternions};
inline constexpr RowWriter WriteMatrixToFile{FileKind::Matrix};
inline constexpr RowWriter WriteAnglesToFile{FileKind::Angles};
inline constexpr RowWriter WriteQuatVecsToFile{FileKind::QuatVecs};
inline constexpr RowWriter WriteAnglesAccRateVectorsToFile{FileKind::AnglesAccRateVector};

}  // namespace orbkl4
