#include "platform/system/port_device.h"

#include "platform/system/folders.h"

#include <QFileInfo>
#include <QSerialPortInfo>

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#ifdef Q_OS_LINUX
#include <sys/sysmacros.h>
#endif
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
    // Resolve the link: the lock file of an open port is named after the path opened, so two names
    // of one line would let two programs share it.
    return link.exists() ? link.canonicalFilePath() : TablePath(number);
}

#ifdef Q_OS_LINUX
constexpr const char* deviceTree = "/sys/dev/char";

/// Whether the device `number` is a terminal by its number or its place in the device tree.
bool IsTerminalNumber(dev_t number) {
    constexpr unsigned firstPseudo = 136;
    constexpr unsigned lastPseudo = 143;
    const unsigned kind = major(number);
    if (kind >= firstPseudo && kind <= lastPseudo) return true;  // these aren't in the tree
    const QFileInfo subsystem(QStringLiteral("%1/%2:%3/subsystem")
                                  .arg(QLatin1String(deviceTree))
                                  .arg(kind)
                                  .arg(minor(number)));
    return QFileInfo(subsystem.canonicalFilePath()).fileName() == QLatin1String("tty");
}
#endif

/// Whether the character device at `path` is a terminal. It is opened only if the system has no
/// device tree to look it up in, as opening can change the control lines.
bool IsTerminal(const QByteArray& path, [[maybe_unused]] dev_t number) {
#ifdef Q_OS_LINUX
    if (QFileInfo::exists(QLatin1String(deviceTree))) return IsTerminalNumber(number);
#endif
    const int line = ::open(path.constData(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (line < 0) return errno == EBUSY || errno == EACCES;  // assume so
    const bool isTerminal = ::isatty(line) != 0;
    ::close(line);
    return isTerminal;
}

/// The device's group if it may read and write it, else empty.
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
    device.present = ::stat(path.constData(), &status) == 0 && S_ISCHR(status.st_mode) &&
                     IsTerminal(path, status.st_rdev);
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
