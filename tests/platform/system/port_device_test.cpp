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
    const char* const devices[] = {"none",    "ttyUSB0", "ttyUSB1", "ttyUSB2", "ttyUSB3", "ttyACM0",
                                   "ttyACM1", "ttyACM2", "ttyACM3", "ttyS0",   "ttyS1",   "ttyS2",
                                   "ttyS3",   "ttyUSB4", "ttyUSB5", "ttyUSB6", "ttyUSB7"};
    for (int number = 1; number <= 16; ++number) {
        EXPECT_EQ(DeviceOfPort(number).name, QStringLiteral("/dev/") + devices[number]);
    }
    for (const int number : {-1, 0, 17}) EXPECT_EQ(DeviceOfPort(number).name, "");
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
