#include "sampling_fixture.h"

#include <QRegularExpression>

#include <algorithm>
#include <stdexcept>

namespace orbkl4::test {

namespace {

/// A time in seconds with two decimals at most and no 0 before the point, and ten words from 0 to
/// 65535, each after one blank.
bool IsRow(const QStringList& columns) {
    static const QRegularExpression time(R"(^(0|[1-9]\d*|([1-9]\d*)?\.\d?[1-9])$)");
    const auto isWord = [](const QString& text) {
        const int number = text.toInt();
        return number >= 0 && number <= 65535 && text == QStringLiteral(" %1").arg(number);
    };
    return columns.size() == 11 && time.match(columns[0]).hasMatch() &&
           std::all_of(columns.begin() + 1, columns.end(), isWord);
}

}  // namespace

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

testing::AssertionResult SamplingTest::Grows(const std::string& name, std::size_t bytes) const {
    const auto least = Content(name).size() + bytes;
    if (WaitUntil([&] { return Content(name).size() >= least; })) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure() << name << " doesn't grow";
}

Rows SamplingTest::ReadRows(const std::string& name) const {
    constexpr qsizetype headLines = 5;
    QStringList lines = QString::fromStdString(Content(name)).split(QStringLiteral("\r\n"));
    if (!lines.takeLast().isEmpty()) throw std::runtime_error("the last line is cut");
    if (lines.size() < headLines) throw std::runtime_error("the head is cut");
    Rows rows;
    for (const QString& line : lines.mid(headLines)) {
        const QStringList columns = line.split(QLatin1Char(','));
        if (!IsRow(columns)) throw std::runtime_error("not a whole row: " + line.toStdString());
        rows.emplace_back();
        for (const QString& column : columns) rows.back().push_back(column.toStdString());
    }
    return rows;
}

}  // namespace orbkl4::test
