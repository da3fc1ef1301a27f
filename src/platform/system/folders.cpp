#include "platform/system/folders.h"

#include <QCoreApplication>
#include <QStandardPaths>

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

QString ConfigPath(const QString& leaf) {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/Kestrelmoor/") + leaf;
}

}  // namespace orbkl4
