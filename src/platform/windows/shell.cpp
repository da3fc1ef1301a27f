#include "platform/windows/shell.h"

#include <QDesktopServices>
#include <QUrl>

namespace orbkl4 {

void OpenDocument(const QString& path) { QDesktopServices::openUrl(QUrl::fromLocalFile(path)); }

}  // namespace orbkl4
