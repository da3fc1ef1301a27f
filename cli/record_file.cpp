#include "cli/record_file.h"

#include "cli/error.h"

#include <QDateTime>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSaveFile>

namespace orbkl4::cli {

namespace {

using std::chrono::microseconds;

constexpr auto earlierKey = "earlier";

QString Text(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QJsonArray Entries(const std::vector<ColumnTitle>& columns) {
    QJsonArray entries;
    for (const auto& [name, unit] : columns) {
        const QJsonValue unitText = unit.empty() ? QJsonValue() : QJsonValue(Text(unit));
        entries.append(QJsonObject{{"name", Text(name)}, {"unit", unitText}});
    }
    return entries;
}

/// Where the file of the recording at `path` lies.
std::string PathFor(const std::string& path) { return path + ".json"; }

/// What the file at `path` says of the recordings so far, the last of them last.
QJsonArray EarlierIn(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return {};
    QJsonObject last = QJsonDocument::fromJson(file.readAll()).object();
    QJsonArray earlier = last.take(QLatin1String(earlierKey)).toArray();
    if (!last.isEmpty()) earlier.append(last);
    return earlier;
}

}  // namespace

QString UtcText(microseconds time) {
    const auto milliseconds = std::chrono::floor<std::chrono::milliseconds>(time);
    return QDateTime::fromMSecsSinceEpoch(milliseconds.count()).toUTC().toString(Qt::ISODateWithMs);
}

QJsonObject Described(const RecordedSensor& sensor, const Channel& channel,
                      const std::vector<ColumnTitle>& columns) {
    const GainScales& scales = sensor.gainScales;
    return {{"version", 1},
            {"device", QString::fromStdString(sensor.device)},
            {"baud", sensor.baud},
            {"serialNumber", sensor.serialNumber},
            {"firmware", QString::fromStdString(sensor.firmware)},
            {"gainScales", QJsonObject{{"gyro", scales.GyroGainScale},
                                       {"accelerometer", scales.AccGainScale},
                                       {"magnetometer", scales.MagGainScale}}},
            {"tickInterval_ms", sensor.tickIntervalMilliseconds},
            {"channel", Text(channel.name)},
            {"columns", Entries(columns)}};
}

RecordFile::RecordFile(const std::string& recording, QJsonObject description, microseconds start,
                       bool goesOn)
    : path_(QString::fromStdString(PathFor(recording))), document_(std::move(description)) {
    document_["format"] = "orb-kl4 recording";
    document_["start"] = UtcText(start);
    if (!goesOn) return;
    const QJsonArray earlier = EarlierIn(path_);
    if (!earlier.isEmpty()) document_[QLatin1String(earlierKey)] = earlier;
}

void RecordFile::Permit(const Target& target) {
    if (target.path.empty() || target.existing != Existing::Refuse) return;
    RefuseIfThere(target.path);
    RefuseIfThere(PathFor(target.path));
}

QJsonObject RecordFile::Write(const Tally& tally, const QJsonValue& ended, microseconds now) const {
    QJsonArray gaps;
    for (const Gap& gap : tally.gaps)
        gaps.append(QJsonObject{
            {"from", UtcText(gap.from)}, {"to", UtcText(gap.to)}, {"why", QLatin1String(gap.why)}});
    QJsonObject document = document_;
    document["rows"] = static_cast<qint64>(tally.rows);
    document["badReplies"] = static_cast<qint64>(tally.badReplies);
    document["timeouts"] = static_cast<qint64>(tally.timeouts);
    document["gaps"] = gaps;
    document["gapsUnlisted"] = static_cast<qint64>(tally.gapsUnlisted);
    document["end"] = ended.isNull() ? QJsonValue() : QJsonValue(UtcText(now));
    document["ended"] = ended;
    QSaveFile file(path_);
    const QByteArray text = QJsonDocument(document).toJson();
    if (file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.commit())
        return document;
    throw CliError(Failure::System,
                   path_.toStdString() + " can't be written: " + file.errorString().toStdString());
}

}  // namespace orbkl4::cli
