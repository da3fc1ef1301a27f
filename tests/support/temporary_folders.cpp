#include "support/temporary_folders.h"

#include "platform/system/folders.h"

#include <QDir>
#include <QFile>

namespace orbkl4::test {

namespace {

constexpr const char* configVariable = "XDG_CONFIG_HOME";

QString LinkPath(int number) {
    return ConfigPath(QStringLiteral("ORB-KL4-RS232/ports/%1").arg(number));
}

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
    UnlinkPort(number);
    QDir().mkpath(ConfigPath(QStringLiteral("ORB-KL4-RS232/ports")));
    QFile::link(target, LinkPath(number));
}

void TemporaryFolders::UnlinkPort(int number) const { QFile::remove(LinkPath(number)); }

QByteArray ContentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace orbkl4::test
