#include "link/screens/connect_fixture.h"

#include "platform/port_device.h"

#include <QEvent>
#include <QFile>

namespace orbkl4::test {

std::vector<Bytes> Exchange(int tests) {
    std::vector<Bytes> bytes;
    for (int i = 0; i < tests; ++i) bytes.insert(bytes.end(), {polledMode, firmwareRequest});
    bytes.insert(bytes.end(), defaults.begin(), defaults.end());
    bytes.insert(bytes.end(),
                 {{0xF0}, {0xF1}, {0x28, 0x00, 0x82}, {0x28, 0x00, 0xE6}, {0x28, 0x00, 0xE8}});
    return bytes;
}

ConnectScreen::ConnectScreen()
    : screen(OpenModal("Connect")),
      noLine_(surroundings.ConfigFolder() + QStringLiteral("/no-line")) {
    QFile(noLine_).open(QIODevice::WriteOnly);
    PlugInto(1);
}

void ConnectScreen::PlugInto(int number) const {
    for (int other = 1; other <= lastPortNumber; ++other) Unplug(other);
    surroundings.LinkPort(number, QString::fromStdString(sensor.DevicePath().string()));
}

void ConnectScreen::Unplug(int number) const { surroundings.LinkPort(number, noLine_); }

void ConnectScreen::SetSpeed(std::uint16_t code) {
    sensor.SetWord(44, code);
    sensor.PowerCycle();
}

void ConnectScreen::Press(const char* button) const { Get<QPushButton>(screen, button).click(); }

void ConnectScreen::ConnectManually(int port, const std::string& baud) const {
    Get<QWidget>(screen, "NumEditCommPort").setProperty("value", port);
    Get<QAbstractButton>(screen, ("optBaud" + baud).c_str()).setChecked(true);
    Press("cmdConnectManual");
}

bool ConnectScreen::IsClosed() { return FindScreen("Connect") == nullptr; }

bool ConnectScreen::MenusEnabled() {
    const Screen& main = *FindScreen("Main");
    EXPECT_EQ(main.Menu("mnuTools").Enabled(), main.Menu("mnuDisplay").Enabled());
    return main.Menu("mnuTools").Enabled();
}

QString ConnectScreen::StorePath() const {
    return surroundings.ConfigFolder() + QStringLiteral("/Kestrelmoor/ORB-KL4-RS232.ini");
}

std::string ConnectScreen::Stored(const char* key) const {
    const QByteArray prefix = QByteArray(key) + '=';
    for (QByteArray line : ContentOf(StorePath()).split('\n')) {
        if (line.startsWith(prefix)) {
            return line.mid(prefix.size()).replace('"', "").trimmed().toStdString();
        }
    }
    return "none";
}

CaptionWatch::CaptionWatch(QGroupBox& frame) : frame_(frame) { frame.installEventFilter(this); }

bool CaptionWatch::eventFilter(QObject* /*watched*/, QEvent* event) {
    const std::string caption = frame_.title().toStdString();
    if (event->type() == QEvent::Paint && (captions.empty() || captions.back() != caption)) {
        captions.push_back(caption);
        if (onCaption) onCaption(caption);
    }
    return false;
}

}  // namespace orbkl4::test
