#include "platform/system/folders.h"

#include "platform/system/system_error.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include <filesystem>
#include <system_error>

namespace orbkl4 {

namespace {

constexpr const char* companyFolder = "/Kestrelmoor/";

QString& Replacement() {
    static QString folder;
    return folder;
}

/// Whether users may keep files in `folder`. What lies below /usr belongs to the system, also where
/// the super-user could write.
bool IsUsersOwn(const QString& folder) {
    return QFileInfo(folder).isWritable() && !folder.startsWith(QStringLiteral("/usr/"));
}

/// The folder that holds the folders for data files and logs.
QString WorkFolder() {
    QString folder = ProgramFolder();
    if (IsUsersOwn(folder)) return folder;
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QLatin1String(companyFolder) + QStringLiteral("ORB-KL4-RS232");
}

}  // namespace

QString ProgramFolder() {
    return Replacement().isEmpty() ? QCoreApplication::applicationDirPath() : Replacement();
}

void ProgramFolder(const QString& folder) { Replacement() = folder; }

QString DataFilesFolder() { return WorkFolder() + QStringLiteral("/Data Files"); }

QString LogsFolder() { return WorkFolder() + QStringLiteral("/Logs"); }

QString InstalledFile(const QString& path) {
    return QDir::cleanPath(ProgramFolder() + QStringLiteral("/../share/") + path);
}

bool MakeFolder(const QString& folder) {
    std::error_code failure;
    const bool made = std::filesystem::create_directory(folder.toStdU16String(), failure);
    if (failure) RaiseSystemError(failure.value(), folder.toStdString());
    return made;
}

void MakeWorkFolder() {
    if (IsUsersOwn(ProgramFolder())) return;
    std::error_code failure;
    std::filesystem::create_directories(WorkFolder().toStdU16String(), failure);
    if (failure) RaiseSystemError(failure.value(), WorkFolder().toStdString());
}

QString ConfigPath(const QString& leaf) {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QLatin1String(companyFolder) + leaf;
}

}  // namespace orbkl4
