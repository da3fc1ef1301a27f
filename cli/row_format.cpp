#include "cli/row_format.h"

#include "acquire/logic/sampling.h"
#include "base/number_text.h"
#include "base/program.h"
#include "platform/system/clock.h"

#include <algorithm>

namespace orbkl4::cli {

namespace {

using std::chrono::microseconds;

/// `time` in seconds with six decimals; it isn't negative.
std::string SecondsText(microseconds time) {
    constexpr int decimals = 6;
    const std::string fraction = std::to_string(time.count() % microseconds::period::den);
    return std::to_string(time.count() / microseconds::period::den) + '.' +
           std::string(decimals - fraction.size(), '0') + fraction;
}

std::string TicksText(const Layout& layout, const Sample& sample) {
    return ScreenText(SideFields(layout.packet.side).ticks.In(sample));
}

std::string CsvHead(const Layout& layout) {
    std::string head(timestampColumn);
    head.append(",").append(timeColumn);
    for (const Column& column : layout.values) head.append(",").append(column.name);
    return head.append(",").append(ticksColumn).append("\n");
}

void FormatCsv(const Layout& layout, const TimedSample& timed, std::string& row) {
    row = SecondsText(timed.unixTime);
    row.append(",").append(SecondsText(timed.sinceStart));
    for (const Column& column : layout.values)
        row.append(",").append(ScreenText(column.field.In(timed.sample)));
    row.append(",").append(TicksText(layout, timed.sample)).append("\n");
}

std::string NoHead(const Layout& /*layout*/) { return {}; }

void FormatJsonLine(const Layout& layout, const TimedSample& timed, std::string& row) {
    FormatJson(layout, timed, row);
    row += '\n';
}

constexpr const char* workbenchLineEnd = "\r\n";

std::string WorkbenchHead(const Layout& layout) {
    std::string head;
    for (const std::string& line : FileHeader(RowOf(layout.channel.kind).text, VersionText(),
                                              LocalDateText(), LocalTimeText()))
        head.append(line).append(workbenchLineEnd);
    return head;
}

void FormatWorkbench(const Layout& layout, const TimedSample& timed, std::string& row) {
    Sampling sampling;
    StampSampleTime(sampling, timed.sinceStart.count(), microseconds::period::den);
    FormatFileRow(layout.channel.kind, layout.packet.side, timed.sample, sampling.SampleTimeText,
                  row);
    row += workbenchLineEnd;
}

constexpr bool KindHasAllFields(const Channel& channel) {
    const SamplePacket& packet = PacketOf(channel.command);
    const auto columns = RowOf(channel.kind).columns;
    return columns.size() == packet.words.size() &&
           std::ranges::all_of(packet.words, [&](const PacketWord& word) {
               return std::ranges::find(
                          columns, word.field,
                          packet.side == Side::Gyro ? &FileColumn::gyro : &FileColumn::instant) !=
                      columns.end();
           });
}

static_assert(std::ranges::all_of(channels, KindHasAllFields),
              "the workbench's file of a channel has the fields of its packet");

}  // namespace

void FormatJson(const Layout& layout, const TimedSample& timed, std::string& row) {
    row = '{';
    const auto add = [&](std::string_view name, const std::string& number) {
        row.append("\"").append(name).append("\":").append(number).append(",");
    };
    add(timestampColumn, SecondsText(timed.unixTime));
    add(timeColumn, SecondsText(timed.sinceStart));
    for (const Column& column : layout.values)
        add(column.name, ScreenText(column.field.In(timed.sample)));
    add(ticksColumn, TicksText(layout, timed.sample));
    add(sequenceColumn, std::to_string(timed.sequence));
    row.back() = '}';
}

const std::array<RowFormat, 3> rowFormats{{
    {"csv", CsvHead, FormatCsv},
    {"jsonl", NoHead, FormatJsonLine},
    {"workbench", WorkbenchHead, FormatWorkbench},
}};

}  // namespace orbkl4::cli
