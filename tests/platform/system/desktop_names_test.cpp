#include "platform/system/desktop_names.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace orbkl4 {
namespace {

/// A desktop whose settings program is a script; the environment is as before at the end.
class DesktopNamesTest : public testing::Test {
  protected:
    ~DesktopNamesTest() override {
        for (auto row = before_.rbegin(); row != before_.rend(); ++row) {
            const auto& [name, value] = *row;
            value.isNull() ? qunsetenv(name) : qputenv(name, value);
        }
    }

    void Set(const char* name, const QByteArray& value) {
        before_.emplace_back(name, qEnvironmentVariableIsSet(name) ? qgetenv(name) : QByteArray());
        qputenv(name, value);
    }

    void SettingsProgram(const QByteArray& script) {
        QFile file(folder_.filePath("gsettings"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("#!/bin/sh\n" + script);
        file.close();
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        Set("PATH", folder_.path().toLocal8Bit() + ":" + qgetenv("PATH"));
    }

  private:
    QTemporaryDir folder_;
    std::vector<std::pair<const char*, QByteArray>> before_;
};

TEST_F(DesktopNamesTest, AsksGnomeOnGnomeOnly) {
    Set("GTK_THEME", "");
    SettingsProgram(
        "case \"$*\" in\n"
        "'get org.gnome.desktop.interface gtk-theme') echo \"'Adwaita'\";;\n"
        "'get org.gnome.desktop.interface color-scheme') echo \"'prefer-dark'\";;\n"
        "'get org.gnome.desktop.a11y.interface high-contrast') echo true;;\n"
        "*) echo dark;;\n"
        "esac\n");
    Set("XDG_CURRENT_DESKTOP", "XFCE");
    EXPECT_EQ(DesktopNames(), "");
    Set("XDG_CURRENT_DESKTOP", "ubuntu:GNOME");
    EXPECT_EQ(DesktopNames(), "'Adwaita' 'prefer-dark' contrast");
    Set("GTK_THEME", "HighContrast");
    EXPECT_EQ(DesktopNames(), "HighContrast");
}

TEST_F(DesktopNamesTest, DoesNotWaitForSettingsThatDoNotCome) {
    Set("GTK_THEME", "");
    Set("XDG_CURRENT_DESKTOP", "GNOME");
    SettingsProgram("exec sleep 60\n");
    const QDeadlineTimer deadline(10000);
    EXPECT_EQ(DesktopNames().trimmed(), "");
    EXPECT_FALSE(deadline.hasExpired());
}

}  // namespace
}  // namespace orbkl4
