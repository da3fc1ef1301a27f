#include "acquire/logic/file_kinds.h"

#include "base/number_text.h"

#include <algorithm>

namespace orbkl4 {

namespace {

std::string ColumnTitles(const FileKindRow& row) {
    std::string titles = "Time(Seconds)";
    for (const FileColumn& column : row.columns) titles.append(",").append(column.title);
    return titles.append(",TimerTicks");
}

}  // namespace

std::vector<std::string> FileHeader(std::string_view kind, std::string_view version,
                                    std::string_view date, std::string_view time) {
    std::vector<std::string> lines{
        std::string("Kestrelmoor ORB-KL4 Data File Version ").append(version),
        std::string("Date file created: ").append(date),
        std::string("Time file created: ").append(time),
        std::string(kind),
    };
    const auto* row = std::ranges::find(fileKinds, kind, &FileKindRow::text);
    if (row != fileKinds.end()) lines.push_back(ColumnTitles(*row));
    return lines;
}

void FormatFileRow(FileKind kind, Side side, const Sample& sample, std::string_view timeText,
                   std::string& row) {
    row = timeText;
    const auto add = [&](const SampleField& field) {
        row += ',';
        row += FileText(field.In(sample));
    };
    for (const FileColumn& column : RowOf(kind).columns)
        add(side == Side::Gyro ? column.gyro : column.instant);
    add(SideFields(side).ticks);
}

}  // namespace orbkl4
