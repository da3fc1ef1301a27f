#pragma once

#include <QString>

namespace orbkl4 {

/// The folder of the executable, which holds the folders for data files and logs.
QString ProgramFolder();

/// Uses `folder` instead of the executable's own; an empty text restores that.
void ProgramFolder(const QString& folder);

/// The folder that the file dialog offers for data files.
QString DataFilesFolder();

/// The folder of the error log, the EEPROM logs and the Time Tick Table. It has one spelling, for
/// file systems with case-sensitive names.
QString LogsFolder();

/// Makes `folder` if it doesn't exist; errors as `RaiseSystemError`, 70 where this user may not.
void MakeFolder(const QString& folder);

/// `<per-user configuration folder>/Kestrelmoor/<leaf>`.
QString ConfigPath(const QString& leaf);

}  // namespace orbkl4
