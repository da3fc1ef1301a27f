#pragma once

#include <QString>

namespace orbkl4 {

/// The folder of the executable, beside which data files and logs lie.
QString ProgramFolder();

/// Puts `folder` in the place of the executable's own folder.
void ProgramFolder(const QString& folder);

/// The folder in which data files are offered to be saved.
QString DataFilesFolder();

/// The folder of the error log, the EEPROM logs and the Time Tick Table: one folder, however the
/// name is spelled, also where file names are case-sensitive.
QString LogsFolder();

/// Makes `folder` where it doesn't exist; error 70 where this user may not, 76 and the like where
/// it can't be made for another reason.
void MakeFolder(const QString& folder);

/// `<per-user config folder>/Kestrelmoor/<leaf>`; the platform's environment says where it is.
QString ConfigPath(const QString& leaf);

}  // namespace orbkl4
