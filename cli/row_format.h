#pragma once

#include "cli/channels.h"
#include "cli/columns.h"

#include <array>
#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace orbkl4::cli {

/// What the rows of a recording consist of.
struct Layout {
    explicit Layout(const Channel& recorded)
        : channel(recorded), packet(PacketOf(recorded.command)), values(ValueColumns(packet)) {}

    const Channel& channel;
    const SamplePacket& packet;
    std::vector<Column> values;
};

/// A sample and when its last byte came.
struct TimedSample {
    const Sample& sample;
    std::chrono::microseconds unixTime;
    std::chrono::microseconds sinceStart;
    std::uint64_t sequence;  ///< number of the sample, from 0
};

/// A column of a file: its name and its unit, empty where it has none.
struct ColumnTitle {
    std::string_view name;
    std::string_view unit;
};

/// A kind of file: its name on the command line, what each of its rows begins with, its columns,
/// the text at its beginning, and a sample's row with its line end. A row's memory is kept from
/// sample to sample.
struct RowFormat {
    std::string_view name;
    std::string_view rowStart;
    std::vector<ColumnTitle> (*columns)(const Layout& layout);
    std::string (*head)(const Layout& layout);
    void (*format)(const Layout& layout, const TimedSample& sample, std::string& row);
};

/// The columns of JSON lines, which are the members of each object.
std::vector<ColumnTitle> JsonColumns(const Layout& layout);

/// The sample's JSON object, the row of JSON lines without its line end.
void FormatJson(const Layout& layout, const TimedSample& timed, std::string& row);

/// CSV, JSON lines and the workbench's own file.
extern const std::array<RowFormat, 3> rowFormats;

}  // namespace orbkl4::cli
