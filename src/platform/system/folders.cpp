#include "platform/system/folders.h"

#include "platform/system/system_error.h"

#include <QCoreApplication>
#include <QStandardPaths>

#include <filesystem>
#include <system_error>

namespace orbkl4 {

namespace {

QString& Replacement() {
    static QString folder;
    return folder;
}

}  // namespace

QString ProgramFolder() {
    return Replacement().isEmpty() ? QCoreApplication::applicationDirPath() : Replacement();
}

void ProgramFolder(const QString& folder) { Replacement() = folder; }

QString DataFilesFolder() { return ProgramFolder() + QStringLiteral("/Data Files"); }

QString LogsFolder() { return ProgramFolder() + QStringLiteral("/Logs"); }

void MakeFolder(const QString& folder) {
    std::error_code failure;
    std::filesystem::create_directory(folder.toStdU16String(), failure);
    if (failure) RaiseSystemError(failure.value(), folder.toStdString());
}

QString ConfigPath(const QString& leaf) {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/Kestrelmoor/") + leaf;
}

}  // namespace orbkl4
