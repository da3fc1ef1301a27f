#include "support/temporary_folders.h"

#include "platform/system/folders.h"

#include <QDir>
#include <QFile>

namespace orbkl4::test {

namespace {

constexpr const char* configVariable = "XDG_CONFIG_HOME";

}  // namespace

TemporaryFolders::TemporaryFolders() : formerConfig_(qgetenv(configVariable)) {
    qputenv(configVariable, ConfigFolder().toLocal8Bit());
    const QString program = root_.filePath(QStringLiteral("program"));
    QDir().mkpath(program);
    QDir().mkpath(ConfigFolder());
    ProgramFolder(program);
}

TemporaryFolders::~TemporaryFolders() {
    qputenv(configVariable, formerConfig_);
    ProgramFolder(QString());
}

void TemporaryFolders::LinkPort(int number, const QString& target) const {
    const QDir ports(ConfigPath(QStringLiteral("ORB-KL4-RS232/ports")));
    const QString link = ports.filePath(QString::number(number));
    QDir().mkpath(ports.path());
    QFile::remove(link);
    QFile::link(target, link);
}

QByteArray ContentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace orbkl4::test
