#include "cli/row_format.h"

#include "acquire/logic/sampling.h"
#include "base/number_text.h"
#include "base/program.h"
#include "platform/system/clock.h"

#include <algorithm>

namespace orbkl4::cli {

namespace {

using std::chrono::microseconds;

/// Appends `time` in seconds with six decimals; it isn't negative.
void AppendSeconds(std::string& row, microseconds time) {
    constexpr auto perSecond = microseconds::period::den;
    row.append(std::to_string(time.count() / perSecond));
    const std::size_t point = row.size();
    row.append(std::to_string(perSecond + time.count() % perSecond));  // "1" and six digits
    row[point] = '.';
}

std::string TicksText(const Layout& layout, const Sample& sample) {
    return ScreenText(SideFields(layout.packet.side).ticks.In(sample));
}

std::vector<ColumnTitle> CsvColumns(const Layout& layout) {
    std::vector<ColumnTitle> columns{{timestampColumn, "s"}, {timeColumn, "s"}};
    for (const Column& column : layout.values) columns.push_back({column.name, column.unit});
    columns.push_back({ticksColumn, ""});
    return columns;
}

std::string CsvHead(const Layout& layout) {
    std::string head;
    for (const ColumnTitle& column : CsvColumns(layout)) head.append(column.name).append(",");
    head.back() = '\n';
    return head;
}

void FormatCsv(const Layout& layout, const TimedSample& timed, std::string& row) {
    row.clear();
    AppendSeconds(row, timed.unixTime);
    AppendSeconds(row += ',', timed.sinceStart);
    for (const Column& column : layout.values)
        row.append(",").append(ScreenText(column.field.In(timed.sample)));
    row.append(",").append(TicksText(layout, timed.sample)).append("\n");
}

std::string NoHead(const Layout& /*layout*/) { return {}; }

void FormatJsonLine(const Layout& layout, const TimedSample& timed, std::string& row) {
    FormatJson(layout, timed, row);
    row += '\n';
}

constexpr const SampleField& FieldOf(const FileColumn& column, Side side) {
    return side == Side::Gyro ? column.gyro : column.instant;
}

std::vector<ColumnTitle> WorkbenchColumns(const Layout& layout) {
    std::vector<ColumnTitle> columns{{"Time(Seconds)", "s"}};
    for (const FileColumn& column : RowOf(layout.channel.kind).columns) {
        const auto value =
            std::ranges::find(layout.values, FieldOf(column, layout.packet.side), &Column::field);
        columns.push_back({column.title, value->unit});
    }
    columns.push_back({"TimerTicks", ""});
    return columns;
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
    const auto isThere = [&](const FileColumn& column) {
        return std::ranges::count(packet.words, FieldOf(column, packet.side), &PacketWord::field) ==
               1;
    };
    return columns.size() == packet.words.size() && std::ranges::all_of(columns, isThere);
}

static_assert(std::ranges::all_of(channels, KindHasAllFields),
              "the workbench's file of a channel has the fields of its packet");

}  // namespace

std::vector<ColumnTitle> JsonColumns(const Layout& layout) {
    auto columns = CsvColumns(layout);
    columns.push_back({sequenceColumn, ""});
    return columns;
}

void FormatJson(const Layout& layout, const TimedSample& timed, std::string& row) {
    row = '{';
    const auto member = [&](std::string_view name) -> std::string& {
        if (row.size() > 1) row += ',';
        return row.append("\"").append(name).append("\":");
    };
    AppendSeconds(member(timestampColumn), timed.unixTime);
    AppendSeconds(member(timeColumn), timed.sinceStart);
    for (const Column& column : layout.values)
        member(column.name).append(ScreenText(column.field.In(timed.sample)));
    member(ticksColumn).append(TicksText(layout, timed.sample));
    member(sequenceColumn).append(std::to_string(timed.sequence));
    row += '}';
}

const std::array<RowFormat, 3> rowFormats{{
    {"csv", "", CsvColumns, CsvHead, FormatCsv},
    {"jsonl", "{\"timestamp\":", JsonColumns, NoHead, FormatJsonLine},
    {"workbench", "", WorkbenchColumns, WorkbenchHead, FormatWorkbench},
}};

}  // namespace orbkl4::cli
