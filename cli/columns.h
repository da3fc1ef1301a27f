#pragma once

#include "acquire/logic/packets.h"
#include "state/sample_fields.h"

#include <string_view>
#include <vector>

namespace orbkl4::cli {

/// A column of values: its name, its unit (empty where the number has none) and its field.
struct Column {
    std::string_view name;
    std::string_view unit;
    SampleField field;
};

/// The columns that stand around the values in every recording.
inline constexpr std::string_view timestampColumn = "timestamp";  ///< Unix seconds
inline constexpr std::string_view timeColumn = "time_s";          ///< seconds since the start
inline constexpr std::string_view ticksColumn = "ticks";          ///< of the sensor, 16 bits
inline constexpr std::string_view sequenceColumn = "seq";         ///< JSON lines only

/// The columns of the values of `packet`, in its order.
std::vector<Column> ValueColumns(const SamplePacket& packet);

}  // namespace orbkl4::cli
