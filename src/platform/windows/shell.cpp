#include "platform/windows/shell.h"

#include <QDesktopServices>
#include <QUrl>

namespace orbkl4 {

bool OpenDocument(const QString& path) {
    return QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

}  // namespace orbkl4
