#pragma once

#include <QString>

namespace orbkl4 {

/// The folder of the executable.
QString ProgramFolder();

/// Uses `folder` instead of the executable's own; an empty text restores that.
void ProgramFolder(const QString& folder);

/// The folder that the file dialog offers for data files. It and that of the logs lie beside the
/// executable; where users may not write there, in `<XDG data>/Kestrelmoor/ORB-KL4-RS232/`.
QString DataFilesFolder();

/// The folder of the error log, the EEPROM logs and the Time Tick Table. It has one spelling, for
/// file systems with case-sensitive names.
QString LogsFolder();

/// Where an installation keeps the file at `path` below its share folder.
QString InstalledFile(const QString& path);

/// Makes `folder` if it doesn't exist and returns whether it did; errors as `RaiseSystemError`, 70
/// where this user may not.
bool MakeFolder(const QString& folder);

/// Makes the folder that holds those for data files and logs, if it isn't the executable's own.
void MakeWorkFolder();

/// `<per-user configuration folder>/Kestrelmoor/<leaf>`.
QString ConfigPath(const QString& leaf);

}  // namespace orbkl4
