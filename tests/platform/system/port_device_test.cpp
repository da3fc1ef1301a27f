#include "platform/system/port_device.h"

#include "support/pty_master.h"
#include "support/temporary_folders.h"

#include <QFile>
#include <gtest/gtest.h>

#include <sys/stat.h>

namespace orbkl4::test {

TEST(PortDevice, OfANumberIsTheOneOfTheTableWhereNoLinkIs) {
    const TemporaryFolders folders;
    folders.LinkPort(3, folders.ConfigFolder() + QStringLiteral("/gone"));
    const char* const devices[] = {
        "",             "/dev/ttyUSB0", "/dev/ttyUSB1", "/dev/ttyUSB2", "/dev/ttyUSB3",
        "/dev/ttyACM0", "/dev/ttyACM1", "/dev/ttyACM2", "/dev/ttyACM3", "/dev/ttyS0",
        "/dev/ttyS1",   "/dev/ttyS2",   "/dev/ttyS3",   "/dev/ttyUSB4", "/dev/ttyUSB5",
        "/dev/ttyUSB6", "/dev/ttyUSB7", ""};
    int number = 0;
    for (const char* device : devices) EXPECT_EQ(DeviceOfPort(number++).name, device);
    EXPECT_EQ(DeviceOfPort(-1).name, "");
}

TEST(PortDevice, IsPresentWhereItIsATerminal) {
    const TemporaryFolders folders;
    const PtyMaster line;
    const QString file = folders.ConfigFolder() + QStringLiteral("/file");
    const QString fifo = folders.ConfigFolder() + QStringLiteral("/fifo");
    ASSERT_TRUE(QFile(file).open(QIODevice::WriteOnly));
    ASSERT_EQ(::mkfifo(fifo.toLocal8Bit().constData(), 0600), 0);
    EXPECT_TRUE(DeviceAt(line.Path()).present);
    for (const QString& other : {file, fifo, folders.ConfigFolder(), QStringLiteral("/dev/null"),
                                 QStringLiteral("/dev/zero"), QStringLiteral("/dev/none")}) {
        EXPECT_FALSE(DeviceAt(other).present) << other.toStdString();
    }
    for (const char* terminal : {"/dev/ttyS0", "/dev/tty1"}) {  // where this machine has them
        const QString name = QLatin1String(terminal);
        EXPECT_EQ(DeviceAt(name).present, QFile::exists(name)) << terminal;
    }
}

}  // namespace orbkl4::test
