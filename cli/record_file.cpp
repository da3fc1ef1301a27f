#include "cli/record_file.h"

#include "cli/atomic_file.h"
#include "cli/error.h"
#include "platform/system/qt_text.h"

#include <QDateTime>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

namespace orbkl4::cli {

namespace {

using std::chrono::microseconds;

constexpr auto earlierKey = "earlier";
constexpr auto formatKey = "format";
constexpr auto formatName = "orb-kl4 recording";

QJsonArray Entries(const std::vector<ColumnTitle>& columns) {
    QJsonArray entries;
    for (const auto& [name, unit] : columns) {
        const QJsonValue unitText = unit.empty() ? QJsonValue() : QJsonValue(ToQString(unit));
        entries.append(QJsonObject{{"name", ToQString(name)}, {"unit", unitText}});
    }
    return entries;
}

/// Where the file of the recording at `path` lies.
std::string PathFor(const std::string& path) { return path + ".json"; }

/// Throws where the recording described by `last` can't go on as `document` describes it.
void RequireSame(const std::string& path, const QJsonObject& last, const QJsonObject& document) {
    for (const char* key : {formatKey, "serialNumber", "channel", "columns"}) {
        if (last[QLatin1String(key)] == document[QLatin1String(key)]) continue;
        throw CliError(
            Failure::Usage,
            path + " has another \"" + key + "\" than this recording, so nothing can be appended",
            "name another file");
    }
}

/// What the file at `path` says of the recordings so far, the last of them last; throws where they
/// can't go on as `document` describes.
QJsonArray EarlierIn(const std::string& path, const QJsonObject& document) {
    QFile file(QString::fromStdString(path));
    if (!file.open(QIODevice::ReadOnly)) return {};
    QJsonObject last = QJsonDocument::fromJson(file.readAll()).object();
    RequireSame(path, last, document);
    QJsonArray earlier = last.take(QLatin1String(earlierKey)).toArray();
    earlier.append(last);
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
            {"channel", ToQString(channel.name)},
            {"columns", Entries(columns)}};
}

RecordFile::RecordFile(const std::string& recording, QJsonObject description, microseconds start,
                       bool goesOn)
    : path_(PathFor(recording)), document_(std::move(description)) {
    document_[QLatin1String(formatKey)] = formatName;
    document_["start"] = UtcText(start);
    if (!goesOn) return;
    const QJsonArray earlier = EarlierIn(path_, document_);
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
    ReplaceFile(path_, QJsonDocument(document).toJson());
    return document;
}

}  // namespace orbkl4::cli
