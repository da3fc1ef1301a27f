#pragma once

#include "platform/system/port_device.h"
#include "platform/windows/screen_registry.h"
#include "support/screens/screen_fixture.h"

#include <QFile>
#include <QMessageBox>
#include <QScreen>
#include <QTabWidget>

#include <string>
#include <vector>

namespace orbkl4::test {

using Texts = std::vector<std::string>;

inline const Bytes firmwareRequest{0xF0};

/// Written after each successful test and by the reset.
inline const std::vector<Bytes> defaults{polledMode,
                                         {0x29, 0x71, 0x00, 0xEE, 0x00, 0x10, 0xAA},
                                         {0x29, 0x71, 0x00, 0xF0, 0x00, 0x10, 0xAA},
                                         {0x29, 0x71, 0x00, 0xF2, 0x01, 0x00, 0xAA},
                                         {0x29, 0x71, 0x00, 0xF6, 0x00, 0x01, 0xAA}};

inline const std::string autoFailure =
    "ORB-KL4 not found on comm ports 1-16! Check your cable, power supply, comm port, etc. If BAUD "
    "RATE was changed, cycle the ORB-KL4 power. Click Retry to attempt re-connect or Cancel to "
    "quit.";
inline const std::string success = "ORB-KL4 connection successful!";

/// All requests of a connection that finds the sensor at the last of `tests` speeds.
inline std::vector<Bytes> Exchange(std::size_t tests) {
    std::vector<Bytes> bytes;
    for (std::size_t i = 0; i < tests; ++i)
        bytes.insert(bytes.end(), {polledMode, firmwareRequest});
    bytes.insert(bytes.end(), defaults.begin(), defaults.end());
    bytes.insert(bytes.end(),
                 {{0xF0}, {0xF1}, {0x28, 0x00, 0x82}, {0x28, 0x00, 0xE6}, {0x28, 0x00, 0xE8}});
    return bytes;
}

/// The dialog `Connect` open, the sensor on port 1, and all other ports absent.
class ConnectScreen : public ScreenTest {
  protected:
    ConnectScreen() {
        OpenModal("Connect");
        QFile(noLine).open(QIODevice::WriteOnly);
        PlugInto(1);
    }

    /// Makes the sensor the device of port `number` and of no other.
    void PlugInto(int number) const {
        for (int other = 1; other <= lastPortNumber; ++other) Unplug(other);
        folders.LinkPort(number, QString::fromStdString(sensor.DevicePath().string()));
    }

    /// Leaves port `number` without a serial line.
    void Unplug(int number) const { folders.LinkPort(number, noLine); }

    static Screen& Dialog() { return *FindScreen("Connect"); }
    static bool IsClosed() { return FindScreen("Connect") == nullptr; }

    static void Press(const char* button) { ScreenTest::Press(Dialog(), button); }

    static void ConnectManually(int port, const std::string& baud) {
        Get<QTabWidget>(Dialog(), "SSTab1").setCurrentIndex(1);
        Get<QWidget>(Dialog(), "NumEditCommPort").setProperty("value", port);
        Get<QAbstractButton>(Dialog(), ("optBaud" + baud).c_str()).setChecked(true);
        Press("cmdConnectManual");
    }

    static bool Enabled(const char* control) { return Get<QWidget>(Dialog(), control).isEnabled(); }

    /// The texts of `fields`.
    static Texts Shown(const std::vector<const char*>& fields) {
        Texts texts;
        for (const char* field : fields) texts.push_back(Text(Dialog(), field));
        return texts;
    }

    /// Whether `box` lies beside `frame`, whose contents can so be read.
    static bool IsBeside(const QMessageBox& box, const char* frame) {
        const auto& subject = Get<QWidget>(Dialog(), frame);
        const QRect place(subject.mapToGlobal(QPoint()), subject.size());
        return !box.frameGeometry().intersects(place) &&
               box.screen()->availableGeometry().contains(box.frameGeometry());
    }

    /// Whether the two menus of the main window are enabled; they are only together.
    static bool MenusEnabled() {
        const Screen& main = *FindScreen("Main");
        EXPECT_EQ(main.Menu("mnuTools").Enabled(), main.Menu("mnuDisplay").Enabled());
        return main.Menu("mnuTools").Enabled();
    }

    /// A file, not a serial line.
    const QString noLine = folders.ConfigFolder() + QStringLiteral("/no-line");

    /// The file of the settings store, which is made when something is stored.
    const QString store = folders.ConfigFolder() + QStringLiteral("/Kestrelmoor/ORB-KL4-RS232.ini");
};

}  // namespace orbkl4::test
