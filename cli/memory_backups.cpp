#include "cli/memory_backups.h"

#include "cli/atomic_file.h"
#include "cli/error.h"

#include <QDateTime>
#include <QDir>
#include <QStandardPaths>
#include <QTimeZone>

#include <algorithm>

namespace orbkl4::cli {

namespace {

constexpr QLatin1String dateFormat("yyyyMMdd");
constexpr QLatin1String timeFormat("HHmmss.zzz'Z'");
constexpr QLatin1String ending(".json");

/// When the backup called `name` was made; invalid if that is no backup's name.
QDateTime TimeOf(const QString& name) {
    const QString time = name.section(u'-', 1).chopped(ending.size());
    return {QDate::fromString(time.section(u'T', 0, 0), dateFormat),
            QTime::fromString(time.section(u'T', 1), timeFormat), QTimeZone::utc()};
}

/// The time in the name of a backup that is made at `time`.
std::string TextOf(const QDateTime& time) {
    return (time.date().toString(dateFormat) + u'T' + time.time().toString(timeFormat))
        .toStdString();
}

std::vector<std::string> NewestFirst(std::vector<std::string> paths) {
    std::ranges::reverse(paths);
    return paths;
}

/// Lets `change` alter the marks of the image at `path`.
template <typename Body>
void Mark(const std::string& path, const Body& change) {
    MemoryImage image = MemoryBackups::Load(path);
    change(image);
    SaveImage(image, path);
}

}  // namespace

MemoryBackups::MemoryBackups(int serialNumber)
    : folder_(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation).toStdString() +
              "/orb-kl4/backups"),
      serialNumber_(serialNumber) {}

/// All backups of this sensor, the oldest first.
std::vector<std::string> MemoryBackups::Paths() const {
    const QDir folder(QString::fromStdString(folder_));
    const QString pattern = QStringLiteral("%1-*%2").arg(serialNumber_).arg(ending);
    std::vector<std::string> paths;
    for (const QString& name : folder.entryList({pattern}, QDir::Files, QDir::Name))
        if (TimeOf(name).isValid()) paths.push_back(folder.filePath(name).toStdString());
    return paths;
}

std::optional<std::string> MemoryBackups::FirstUnfinished() const {
    for (const std::string& path : Paths())
        if (Load(path).unfinished) return path;
    return std::nullopt;
}

void MemoryBackups::RequireFinished() const {
    const auto path = FirstUnfinished();
    if (!path) return;
    throw CliError(
        Failure::Unfinished,
        "a change of sensor " + std::to_string(serialNumber_) + " has begun and not ended",
        "go back to before it with \"" + UndoCommand() + "\"");
}

std::optional<std::string> MemoryBackups::WayBack() const {
    if (auto path = FirstUnfinished()) return path;
    for (const std::string& path : NewestFirst(Paths()))
        if (!Load(path).undone) return path;
    return std::nullopt;
}

MemoryImage MemoryBackups::Load(const std::string& path) {
    try {
        return LoadImage(path);
    } catch (const CliError& error) {
        // This program wrote it, so it is no wrong use.
        throw CliError(Failure::System, std::string("a backup is damaged: ") + error.what(),
                       "move it out of its folder");
    }
}

std::string MemoryBackups::Save(MemoryImage image) const {
    QDateTime time = QDateTime::currentDateTimeUtc();
    const auto paths = Paths();
    if (!paths.empty()) {
        // The order of the names is that of the changes, even if the clock has been put back.
        const QString newest = QFileInfo(QString::fromStdString(paths.back())).fileName();
        time = std::max(time, TimeOf(newest).addMSecs(1));
    }
    std::string path =
        folder_ + "/" + std::to_string(serialNumber_) + "-" + TextOf(time) + ending.data();
    image.unfinished = true;
    MakeFolders(folder_);
    SaveImage(image, path);
    return path;
}

void MemoryBackups::Finish(const std::string& path) {
    Mark(path, [](MemoryImage& image) { image.unfinished = false; });
}

void MemoryBackups::Reopen(const std::string& path) {
    Mark(path, [](MemoryImage& image) { image.unfinished = true; });
}

void MemoryBackups::NoteUndone(const std::string& path, bool complete) const {
    for (const std::string& later : NewestFirst(Paths())) {
        if (later < path) break;
        Mark(later, [&](MemoryImage& image) {
            image.unfinished = false;
            image.undone = complete || later != path;
        });
    }
}

std::string MemoryBackups::UndoCommand() const {
    return "orb-kl4 memory undo --sensor " + std::to_string(serialNumber_);
}

}  // namespace orbkl4::cli
