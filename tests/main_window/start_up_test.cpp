#include "main_window/start_up.h"

#include "platform/system/folders.h"
#include "support/temporary_folders.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <gtest/gtest.h>

namespace orbkl4::test {
namespace {

void Write(const QString& path, const char* text) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(text);
}

}  // namespace

TEST(Folders, LieInTheUsersOwnDataFolderWhereTheProgramBelongsToTheSystem) {
    const TemporaryFolders folders;
    const QString beside = ProgramFolder();
    EXPECT_EQ(LogsFolder(), beside + QStringLiteral("/Logs"));

    const QByteArray former = qgetenv("XDG_DATA_HOME");
    const QString data = folders.ConfigFolder() + QStringLiteral("/data");
    qputenv("XDG_DATA_HOME", data.toLocal8Bit());
    ProgramFolder(QStringLiteral("/usr/bin"));
    const QString own = data + QStringLiteral("/Kestrelmoor/ORB-KL4-RS232/");
    EXPECT_EQ(LogsFolder(), own + QStringLiteral("Logs"));
    EXPECT_EQ(DataFilesFolder(), own + QStringLiteral("Data Files"));
    TestForFileFolders();
    EXPECT_TRUE(QFileInfo(own + QStringLiteral("Data Files")).isDir());
    EXPECT_FALSE(QFileInfo::exists(QStringLiteral("/usr/bin/Logs")));
    qputenv("XDG_DATA_HOME", former);
}

TEST(Folders, GetTheInstalledTimeTickTableOnce) {
    const TemporaryFolders folders;
    QDir().mkpath(ProgramFolder() + QStringLiteral("/../share/orb-kl4-workbench"));
    Write(InstalledFile(QStringLiteral("orb-kl4-workbench/TimeTickTable.txt")), "installed");
    TestForFileFolders();
    const QString table = LogsFolder() + QStringLiteral("/TimeTickTable.txt");
    EXPECT_EQ(ContentOf(table), "installed");
    Write(table, "the user's own");
    TestForFileFolders();
    EXPECT_EQ(ContentOf(table), "the user's own");
    QFile::remove(table);
    TestForFileFolders();
    EXPECT_FALSE(QFileInfo::exists(table)) << "what the user has deleted stays deleted";
}

}  // namespace orbkl4::test
