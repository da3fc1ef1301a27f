#pragma once

#include <QDir>
#include <QString>

#include <vector>

namespace orbkl4manual {

/// One file of the manual.
struct Chapter {
    QString file;      ///< name without folder, as links give it
    QString markdown;  ///< its text, with the tables made from the program's own
};

/// The files of `folder` whose names begin with two digits, in the order of their names; throws
/// std::runtime_error where there are none or one can't be read.
std::vector<Chapter> ReadChapters(const QDir& folder);

}  // namespace orbkl4manual
