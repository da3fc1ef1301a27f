#include "platform/windows/screen_registry.h"
#include "state/app_state.h"
#include "support/box_answerer.h"
#include "support/screens/screen_fixture.h"
#include "support/wait.h"

#include <QMenu>

#include <array>
#include <string_view>

namespace orbkl4::test {

namespace {

class MainWindow : public ScreenTest {
  protected:
    Screen& main = *FindScreen("Main");

    void PressPicture(Qt::MouseButton button, Qt::KeyboardModifiers keys) {
        QTest::mouseClick(&Get<QWidget>(main, "picORBKL4"), button, keys);
    }
};

/// An entry of the main menu, the screen that it opens with its title, and the menu entry or button
/// that leaves it.
struct Opening {
    const char* entry;
    const char* screen;
    const char* title;
    const char* leave;
    bool talks = true;  ///< the sensor is set to polled mode first
};

constexpr Opening openings[] = {
    {"mnuConnect", "Connect", "Connect", "cmdQuitAuto", false},
    {"mnuEEPROMmap", "EEPROMmap", "EEPROM Map", "mnuReturn"},
    {"mnuGetVersionSerial", "VersionSerial", "Firmware and Serial", "cmdOK", false},
    {"mnuGetTemperature", "GetTemperature", "Get Temperature", "cmdOK"},
    {"mnuHardIronCal", "HardIronCal", "Hard Iron Calibration", "mnuReturn"},
    {"mnuSetMode", "SetMode", "Set Continuous/Polled Mode", "cmdCancel"},
    {"mnuSetWriteRate", "SetWriteRate", "Set Data Acquisition Sampling Rate", "cmdCancel", false},
    {"mnuAngles", "Angles", "Euler Angles", "mnuReturn"},
    {"mnuAnglesAccRate", "AnglesAccRate", "Euler Angles, Accelerometer and Rate Vectors",
     "mnuReturn"},
    {"mnuMatrices", "Matrices", "Orientation Matrix", "mnuReturn"},
    {"mnuQuaternions", "Quaternions", "Quaternions", "mnuReturn"},
    {"mnuQuatVec", "QuatVec", "Quaternions and Vectors", "mnuReturn"},
    {"mnuSensorBits", "SensorBits", "SensorBits", "mnuReturn"},
    {"mnuVectors", "Vectors", "Vectors", "mnuReturn"},
    {"mnuAbout", "About", "About", "cmdOK", false},
    {"mnuAnalog", "Analog", "Analog Output", "mnuReturn"},
    {"mnuGains", "Gains", "Read/Write Current System Gains", "mnuReturn"},
    {"mnuVertical", "Vertical", "Vertical Gyro Mode", "mnuReturn"},
    {"mnuSelfTest", "SelfTest", "Self Test", "mnuReturn"},
    {"mnuSetCalcCycle", "CalcCycle", "Set Timer Tick Interval", "mnuReturn"}};

/// Names and captions of `entries` and of those in their menus, with '*' before hidden ones.
std::string TextOf(const QList<QAction*>& entries) {
    QStringList texts;
    for (const QAction* entry : entries) {
        const QString caption = entry->isSeparator() ? QStringLiteral("-") : entry->text();
        const auto* menu = entry->menu<QMenu*>();
        texts +=
            (entry->isVisible() ? "" : "*") + entry->objectName() + ' ' + caption +
            (menu == nullptr ? "" : QString::fromStdString(" { " + TextOf(menu->actions()) + " }"));
    }
    return texts.join(QStringLiteral("; ")).toStdString();
}

struct Case {
    const char* screen;
    std::string menu;
};

const std::string twoChannels =
    "mnuData &Data { mnuSave Sa&ve; mnuSampleGyro &Sample Gyro-Stabilized; mnuSampleInstant Sample "
    "&Instantaneous; mnuCaptureBias &Capture Bias; mnuSep -; mnuReturn &Return }";

const auto menus = std::to_array<Case>({
    {"Main",
     "mnuFile &File { mnuConnect &Connect; mnuSep -; mnuExit E&xit }; "
     "mnuTools &Tools { mnuEEPROMmap &EEPROM Map; mnuGetVersionSerial Get &Firmware and Serial; "
     "mnuGetTemperature &Get Temperature; mnuHardIronCal &Hard Iron Calibration; "
     "mnuSetMode Set Continuous/Polled &Mode; "
     "mnuSetWriteRate &Set Data Acquisition Sampling Rate; *mnuSep1 -; "
     "*mnuAnalog Analog Outpu&t; *mnuTare Tare Coordinate S&ystem; "
     "*mnuRemove Remove Tare Coor&dinate System; *mnuGains Read/&Write System Gains; "
     "*mnuVertical &Vertical Gyro Mode; *mnuSelfTest Se&lf Test; "
     "*mnuSetCalcCycle Set Timer Tic&k Interval }; "
     "mnuDisplay &Display { mnuAngles Euler &Angles; "
     "mnuAnglesAccRate Euler Angles, Accereleration and &Rate Vectors ; "
     "mnuMatrices &Orientation Matrix; mnuQuaternions &Quaternions; "
     "mnuQuatVec Quaterions and Vec&tors; mnuSensorBits &Sensor Bits; mnuVectors &Vectors }; "
     "mnuHelp &Help { mnuHelpHelp &Help; mnuAbout &About }"},
    {"EEPROMmap",
     "mnuFile &File { mnuRead Rea&d; mnuWrite &Write; mnuViewMatrix &View Matrix; *mnuSep1 -; "
     "*mnuLog Lo&g EEPROM; *mnuShowMin &Show Min; *mnuShowMax Show &Max; Sep1 -; "
     "mnuReturn &Return }"},
    {"ViewMatrix", "mnuClose &Close"},
    {"Gains", "mnuFile &File { mnuRead Rea&d; mnuWrite &Write; mnuSep -; mnuReturn &Return }"},
    {"Analog", "mnuFile &File { mnuRead &Read; mnuWrite &Write; mnuSep -; mnuReturn &Return }"},
    {"CalcCycle",
     "mnuFile &File { mnuRead Rea&d; mnuCalcCycle Set &Calc Cycle; "
     "mnuCalcCycleDefault Set Calc Cycle to &Default; mnuSep -; mnuReturn &Return }"},
    {"Vertical",
     "mnuFile &File { mnuRead Rea&d; mnuSet &Set Vertical Gyro Mode; "
     "mnuRemove Set &Normal Mode; mnuSep -; mnuReturn &Return }"},
    {"HardIronCal",
     "mnuFile &File { mnuErase &Erase Hard Iron Field Calibration; "
     "mnuInit &Initialize Hard Iron Field Calibration; "
     "mnuCollect &Collect Hard Iron Calibration Data; "
     "mnuCompute Compute &Hard Iron Field Calibration; mnuSep -; mnuReturn &Return }"},
    {"SelfTest", "mnuFile &File { mnuSample &Sample; mnuSep -; mnuReturn &Return }"},
    {"SensorBits",
     "mnuData &Data { mnuSave Sa&ve; mnuSample &Sample; mnuSep -; mnuReturn &Return }"},
    {"Vectors", twoChannels},
    {"Quaternions", twoChannels},
    {"Angles", twoChannels},
    {"Matrices", twoChannels},
    {"AnglesAccRate",
     "mnuData &Data { mnuSave Sa&ve; mnuSample &Sample; mnuCaptureBias &Capture Bias; mnuSep -; "
     "mnuReturn &Return }"},
    {"QuatVec",
     "mnuData &Data { mnuSave Sa&ve; "
     "mnuSampleGyro &Sample Gyro-Stabilized Quaternions and Compensated Vectors; "
     "mnuSampleInstant Sample Gyro-Stabilized Quaternions and &Instantaneous Vectors; "
     "mnuCaptureBias &Capture Bias; mnuSep -; mnuReturn &Return }"},
});

}  // namespace

TEST_F(MainWindow, AndTheScreensHaveTheirEntriesAndAccessKeys) {
    LoadScreen("EEPROMmap");
    for (const auto& [name, menu] : menus) {
        Screen* screen = LoadScreen(name);
        EXPECT_EQ(TextOf(screen->MenuBarEntries()), menu) << name;
        const bool needed = screen == &main || std::string_view(name) == "EEPROMmap";
        if (!needed) screen->Unload();  // frees the port for the next one
    }
}

TEST_F(MainWindow, EachEntryOpensItsScreenInPolledModeWhereThatTalksToTheSensor) {
    AppState.FirmwareText = "3.1.01";
    PressPicture(Qt::MiddleButton, Qt::ShiftModifier | Qt::ControlModifier);
    const BoxAnswerer noTimeTickTable;
    for (const auto& [entry, name, title, leave, talks] : openings) {
        SCOPED_TRACE(entry);
        sensor.SetWord(132, 0x31);
        sensor.ClearRecord();
        Click(main, entry);
        const std::vector<Bytes> heard = Heard();
        EXPECT_EQ(heard.empty() ? Bytes{} : heard.front(), talks ? polledMode : Bytes{});
        EXPECT_EQ(sensor.Word(132), talks ? 0 : 0x31);
        Screen* screen = FindScreen(name);
        ASSERT_NE(screen, nullptr);
        EXPECT_TRUE(screen->isVisible());
        EXPECT_EQ(screen->windowTitle(), title);
        const auto leaveBy = std::string_view(leave).starts_with("mnu") ? Click : Press;
        leaveBy(*screen, leave);
        EXPECT_EQ(FindScreen(name), nullptr);
        EXPECT_EQ(ActiveScreenName(), "Main");
    }
}

TEST_F(MainWindow, OnlyTheHiddenGestureShowsTheHiddenEntries) {
    const auto chord = Qt::ShiftModifier | Qt::ControlModifier;
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton})
        PressPicture(button, chord);
    for (const Qt::KeyboardModifiers keys :
         {Qt::KeyboardModifiers(Qt::ShiftModifier), Qt::KeyboardModifiers(Qt::ControlModifier),
          chord | Qt::AltModifier, Qt::KeyboardModifiers(Qt::NoModifier)})
        PressPicture(Qt::MiddleButton, keys);
    EXPECT_FALSE(main.Menu("mnuSelfTest").Visible());
    EXPECT_FALSE(AppState.AdvancedMode);
    PressPicture(Qt::MiddleButton, chord);
    PressPicture(Qt::MiddleButton, chord);
    EXPECT_TRUE(AppState.AdvancedMode);
    for (const char* entry : {"mnuSep1", "mnuAnalog", "mnuTare", "mnuRemove", "mnuGains",
                              "mnuVertical", "mnuSelfTest", "mnuSetCalcCycle"}) {
        EXPECT_TRUE(main.Menu(entry).Visible()) << entry;
    }
}

TEST_F(MainWindow, SaysWhichFirmwareAndWhichFileItLacks) {
    AppState.FirmwareText = "3.0.20";
    const BoxAnswerer boxes;
    Click(main, "mnuHardIronCal");
    EXPECT_EQ(FindScreen("HardIronCal"), nullptr);
    Click(main, "mnuHelpHelp");
    EXPECT_EQ(boxes.Texts(),
              (std::vector<std::string>{
                  "Hard Iron Calibration is not supported in firmware version 3.0.20!",
                  "ORB-KL4 Version 204 Help.pdf missing from application path!"}));
}

TEST_F(MainWindow, SmallScreensShowVersionAndIdentity) {
    AppState.FirmwareText = "3.1.01";
    AppState.SerialNumber = 1234;
    const Screen& identity = OpenModal("VersionSerial");
    EXPECT_EQ(Text(identity, "txtVersion"), "3.1.01");
    EXPECT_EQ(Text(identity, "txtSerialNumber"), "1234");
    Get<QWidget>(identity, "cmdOK").setFocus();
    QTest::keyClick(&Get<QWidget>(identity, "cmdOK"), Qt::Key_Space);
    EXPECT_EQ(FindScreen("VersionSerial"), nullptr);

    const Screen& about = OpenModal("About");
    EXPECT_EQ(Text(about, "lblVersion"), "Version 2.0.4");
}

}  // namespace orbkl4::test
