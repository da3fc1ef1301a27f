#include "sampling_fixture.h"

#include <QRegularExpression>

#include <stdexcept>

namespace orbkl4::test {

void SamplingTest::StartSaving(RunningProgram& program, const std::string& name) {
    program.AwaitScreen("Main");
    program.Unlock("mnuDisplay");
    program.Choose("Main", "mnuSensorBits");
    program.AwaitScreen("SensorBits");
    program.Choose("SensorBits", "mnuSave");
    program.SaveAs(name);
    program.Await("SensorBits", "mnuSave", "checked", "true");
    program.Choose("SensorBits", "mnuSample");
}

bool SamplingTest::Grows(const std::string& name, std::size_t bytes) const {
    const auto least = Content(name).size() + bytes;
    return WaitUntil([&] { return Content(name).size() >= least; });
}

Rows SamplingTest::ReadRows(const std::string& name) const {
    constexpr qsizetype headLines = 5;
    // A time in seconds with two decimals at most and no 0 before the point, and ten words, each
    // after one blank.
    static const QRegularExpression row(
        R"(^(0|[1-9]\d*|([1-9]\d*)?\.\d?[1-9])(, (0|[1-9]\d{0,4})){10}$)");
    QStringList lines = QString::fromStdString(Content(name)).split(QStringLiteral("\r\n"));
    if (!lines.takeLast().isEmpty()) throw std::runtime_error("the last line is cut");
    if (lines.size() < headLines) throw std::runtime_error("the head is cut");
    Rows rows;
    for (const QString& line : lines.mid(headLines)) {
        if (!row.match(line).hasMatch())
            throw std::runtime_error("not a whole row: " + line.toStdString());
        rows.emplace_back();
        for (const QString& column : line.split(QLatin1Char(',')))
            rows.back().push_back(column.toStdString());
    }
    return rows;
}

}  // namespace orbkl4::test
