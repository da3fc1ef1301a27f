#include "cli/memory_backups.h"

#include "cli/atomic_file.h"
#include "cli/error.h"

#include <QDateTime>
#include <QDir>
#include <QStandardPaths>

#include <algorithm>
#include <ranges>

namespace orbkl4::cli {

namespace {

constexpr QLatin1String timeFormat("yyyyMMdd'T'HHmmss.zzz'Z'");
constexpr QLatin1String ending(".json");

/// The backup at `path`, which this program wrote: one that can't be read is no user's mistake.
MemoryImage LoadBackup(const std::string& path) {
    try {
        return LoadImage(path);
    } catch (const CliError& error) {
        throw CliError(Failure::System, std::string("a backup is damaged: ") + error.what(),
                       "move it out of its folder");
    }
}

/// When the backup called `name` was made.
QDateTime TimeOf(const QString& name) {
    const QString time = name.section(u'-', 1).chopped(ending.size());
    QDateTime made = QDateTime::fromString(time, timeFormat);
    made.setTimeSpec(Qt::UTC);
    return made;
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
    for (std::string& path : Paths())
        if (LoadBackup(path).unfinished) return std::move(path);
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

std::optional<MemoryImage> MemoryBackups::WayBack() const {
    if (const auto path = FirstUnfinished()) return LoadBackup(*path);
    const auto paths = Paths();
    if (paths.empty()) return std::nullopt;
    return LoadBackup(paths.back());
}

std::string MemoryBackups::Save(MemoryImage image) const {
    QDateTime time = QDateTime::currentDateTimeUtc();
    const auto paths = Paths();
    if (!paths.empty()) {
        // The order of the names is that of the changes, even if the clock has been put back.
        const QString newest = QFileInfo(QString::fromStdString(paths.back())).fileName();
        time = std::max(time, TimeOf(newest).addMSecs(1));
    }
    const std::string path = folder_ + "/" + std::to_string(serialNumber_) + "-" +
                             time.toString(timeFormat).toStdString() + ending.data();
    image.unfinished = true;
    MakeFolders(folder_);
    SaveImage(image, path);
    return path;
}

void MemoryBackups::Finish(const std::string& path) {
    MemoryImage image = LoadBackup(path);
    if (!image.unfinished) return;
    image.unfinished = false;
    SaveImage(image, path);
}

void MemoryBackups::FinishAll() const {
    for (const std::string& path : Paths() | std::views::reverse) Finish(path);
}

std::string MemoryBackups::UndoCommand() const {
    return "orb-kl4 memory undo --sensor " + std::to_string(serialNumber_);
}

}  // namespace orbkl4::cli
