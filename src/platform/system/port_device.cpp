#include "platform/system/port_device.h"

#include "platform/system/folders.h"

#include <QFileInfo>
#include <QSerialPortInfo>

#include <array>
#include <sys/stat.h>
#include <unistd.h>

namespace orbkl4 {

namespace {

constexpr std::array<const char*, lastPortNumber> fixedTable{
    "ttyUSB0", "ttyUSB1", "ttyUSB2", "ttyUSB3", "ttyACM0", "ttyACM1", "ttyACM2", "ttyACM3",
    "ttyS0",   "ttyS1",   "ttyS2",   "ttyS3",   "ttyUSB4", "ttyUSB5", "ttyUSB6", "ttyUSB7"};

#ifdef Q_OS_MACOS
QString TablePath(int number) {
    QStringList devices;
    for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts()) {
        if (info.portName().startsWith(QLatin1String("cu."))) devices += info.systemLocation();
    }
    devices.sort();
    return devices.value(number - 1);
}
#else
QString TablePath(int number) {
    return QStringLiteral("/dev/") +
           QLatin1String(fixedTable.at(static_cast<std::size_t>(number - 1)));
}
#endif

QString PathOfPort(int number) {
    const QFileInfo link(ConfigPath(QStringLiteral("ORB-KL4-RS232/ports/%1").arg(number)));
    // The link must be resolved: the lock of an open port is named after the path opened, and two
    // names of one line would let two programs share it.
    return link.exists() ? link.canonicalFilePath() : TablePath(number);
}

/// The group that may read and write the device, empty where it has no right to that.
QString PermittedGroup(const QString& path, mode_t mode) {
    constexpr mode_t groupRights = S_IRGRP | S_IWGRP;
    return (mode & groupRights) == groupRights ? QFileInfo(path).group() : QString();
}

}  // namespace

QString AdapterOf(const PortDevice& device) {
    if (!device.present) return {};
    return QSerialPortInfo(QFileInfo(device.name).fileName()).description();
}

QString PermissionHint(const PortDevice& device) {
    QString lack = QStringLiteral("No permission to use it");
    if (device.group.isEmpty()) return lack;
    return lack + QStringLiteral("; the group \"%1\" has it").arg(device.group);
}

PortDevice DeviceAt(const QString& name) {
    PortDevice device;
    device.name = name;
    const QByteArray path = name.toLocal8Bit();
    struct stat status {};
    device.present = ::stat(path.constData(), &status) == 0 && S_ISCHR(status.st_mode);
    if (!device.present) return device;
    device.permitted = ::access(path.constData(), R_OK | W_OK) == 0;
    if (!device.permitted) device.group = PermittedGroup(device.name, status.st_mode);
    return device;
}

PortDevice DeviceOfPort(int number) {
    if (number < 1 || number > lastPortNumber) return {};
    return DeviceAt(PathOfPort(number));
}

}  // namespace orbkl4
