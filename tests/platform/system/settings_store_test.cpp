#include "platform/system/settings_store.h"

#include "platform/system/folders.h"
#include "support/temporary_folders.h"

#include <QFile>
#include <gtest/gtest.h>

namespace orbkl4::test {

TEST(SettingsStore, GivesBackTextsAsTheyStandInItsFile) {
    const TemporaryFolders folders;
    EXPECT_EQ(GetSetting("Store", "Startup", "Line", "none"), "none");
    SaveSetting("Store", "Startup", "Line", "115200,n,8,1");
    EXPECT_EQ(GetSetting("Store", "Startup", "Line", "none"), "115200,n,8,1");

    QFile file(ConfigPath(QStringLiteral("Store.ini")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("[Startup]\nLine=38400,n,8,1\nQuoted=\"19200,n,8,1\"\n");
    file.close();
    EXPECT_EQ(GetSetting("Store", "Startup", "Line", "none"), "38400,n,8,1");
    EXPECT_EQ(GetSetting("Store", "Startup", "Quoted", "none"), "19200,n,8,1");
}

}  // namespace orbkl4::test
