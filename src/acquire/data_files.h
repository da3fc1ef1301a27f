#pragma once

#include "acquire/logic/packets.h"

#include <string_view>

namespace orbkl4 {

class Screen;

/// Asks by the `CommonDialog1` of `screen` for a file of the kind text `kind` and begins it with
/// its head. Any error, Cancel among them, ends it silently; Cancel leaves `DataFileName` as it is.
void CreateDataFile(const Screen& screen, std::string_view kind);

// The row writers: each appends one row of `SampleState` to `DataFileName`, whole or not at all,
// and reports an error under its own name. `timeText` is the time without blanks.
void WriteSensorBitsToFile(std::string_view timeText);
void WriteVectorsToFile(Side side, std::string_view timeText);
void WriteQuaternionsToFile(Side side, std::string_view timeText);
void WriteMatrixToFile(Side side, std::string_view timeText);
void WriteAnglesToFile(Side side, std::string_view timeText);
void WriteQuatVecsToFile(Side side, std::string_view timeText);
void WriteAnglesAccRateVectorsToFile(std::string_view timeText);

}  // namespace orbkl4
