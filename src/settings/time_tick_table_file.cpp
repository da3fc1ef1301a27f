#include "settings/time_tick_table_file.h"

#include "platform/system/folders.h"

#include <QFile>
#include <QFileInfo>

namespace orbkl4 {

QString TimeTickTablePath() { return LogsFolder() + QStringLiteral("/TimeTickTable.txt"); }

TickTableVerdict LoadTimeTickTable(TickTableRows& rows) {
    const QString path = TimeTickTablePath();
    if (!QFileInfo(path).isFile()) return TickTableVerdict::NotFound;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return TickTableVerdict::LoadingFailed;
    const QByteArray contents = file.readAll();
    return ParseTimeTickTable({contents.constData(), static_cast<std::size_t>(contents.size())},
                              rows);
}

}  // namespace orbkl4
