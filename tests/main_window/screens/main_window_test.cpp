#include "platform/windows/screen_registry.h"
#include "state/app_state.h"
#include "support/box_answerer.h"
#include "support/screens/screen_fixture.h"
#include "support/wait.h"

#include <gtest/gtest.h>

#include <string_view>

namespace orbkl4::test {

namespace {

class MainWindow : public ScreenTest {
  protected:
    Screen& main = *FindScreen("Main");

    void PressPicture(Qt::MouseButton button, Qt::KeyboardModifiers keys) {
        QTest::mouseClick(&Get<QWidget>(main, "picORBKL4"), button, keys);
    }
    bool SelfTestShown() const { return main.Menu("mnuSelfTest").Visible(); }
};

/// An entry of the main menu, the screen that it opens with its title, and the menu entry or button
/// that leaves it.
struct Opening {
    const char* entry;
    const char* screen;
    const char* title;
    const char* leave;
};

constexpr Opening openings[] = {
    {"mnuConnect", "Connect", "Connect", "cmdQuitAuto"},
    {"mnuEEPROMmap", "EEPROMmap", "EEPROM Map", "mnuReturn"},
    {"mnuGetVersionSerial", "VersionSerial", "Firmware and Serial", "cmdOK"},
    {"mnuGetTemperature", "GetTemperature", "Get Temperature", "cmdOK"},
    {"mnuHardIronCal", "HardIronCal", "Hard Iron Calibration", "mnuReturn"},
    {"mnuSetMode", "SetMode", "Set Continuous/Polled Mode", "cmdCancel"},
    {"mnuSetWriteRate", "SetWriteRate", "Set Data Acquisition Sampling Rate", "cmdCancel"},
    {"mnuAngles", "Angles", "Euler Angles", "mnuReturn"},
    {"mnuAnglesAccRate", "AnglesAccRate", "Euler Angles, Accelerometer and Rate Vectors",
     "mnuReturn"},
    {"mnuMatrices", "Matrices", "Orientation Matrix", "mnuReturn"},
    {"mnuQuaternions", "Quaternions", "Quaternions", "mnuReturn"},
    {"mnuQuatVec", "QuatVec", "Quaternions and Vectors", "mnuReturn"},
    {"mnuSensorBits", "SensorBits", "SensorBits", "mnuReturn"},
    {"mnuVectors", "Vectors", "Vectors", "mnuReturn"},
    {"mnuAbout", "About", "About", "cmdOK"},
    {"mnuAnalog", "Analog", "Analog Output", "mnuReturn"},
    {"mnuGains", "Gains", "Read/Write Current System Gains", "mnuReturn"},
    {"mnuVertical", "Vertical", "Vertical Gyro Mode", "mnuReturn"},
    {"mnuSelfTest", "SelfTest", "Self Test", "mnuReturn"},
    {"mnuSetCalcCycle", "CalcCycle", "Set Timer Tick Interval", "mnuReturn"}};

const Bytes polledMode{0x29, 0x71, 0x00, 0x84, 0x00, 0x00, 0xAA};

}  // namespace

TEST_F(MainWindow, SpellsAnEntryInItsOwnWay) {
    EXPECT_EQ(main.Menu("mnuAnglesAccRate").text(),
              "Euler Angles, Accereleration and &Rate Vectors ");
}

TEST_F(MainWindow, EachEntryOpensItsScreenAndTheMainWindowFollowsIt) {
    AppState.FirmwareText = "3.1.01";
    const BoxAnswerer noTimeTickTable;
    for (const auto& [entry, name, title, leave] : openings) {
        SCOPED_TRACE(entry);
        Click(main, entry);
        Screen* screen = FindScreen(name);
        ASSERT_NE(screen, nullptr);
        EXPECT_TRUE(screen->isVisible());
        EXPECT_EQ(screen->windowTitle(), title);
        if (std::string_view(leave).starts_with("mnu")) {
            Click(*screen, leave);
        } else {
            Press(*screen, leave);
        }
        EXPECT_EQ(FindScreen(name), nullptr);
        EXPECT_EQ(ActiveScreenName(), "Main");
    }
}

TEST_F(MainWindow, OnlyTheHiddenGestureShowsTheHiddenEntries) {
    const auto chord = Qt::ShiftModifier | Qt::ControlModifier;
    PressPicture(Qt::LeftButton, chord);
    PressPicture(Qt::MiddleButton, Qt::ShiftModifier);
    PressPicture(Qt::MiddleButton, chord | Qt::AltModifier);
    EXPECT_FALSE(SelfTestShown());
    EXPECT_FALSE(AppState.AdvancedMode);
    PressPicture(Qt::MiddleButton, chord);
    PressPicture(Qt::MiddleButton, chord);
    EXPECT_TRUE(AppState.AdvancedMode);
    for (const char* entry : {"mnuSep1", "mnuAnalog", "mnuTare", "mnuRemove", "mnuGains",
                              "mnuVertical", "mnuSelfTest", "mnuSetCalcCycle"}) {
        EXPECT_TRUE(main.Menu(entry).Visible()) << entry;
    }
}

TEST_F(MainWindow, SetsTheSensorToPolledModeBeforeItOpensAScreenThatTalksToIt) {
    sensor.SetWord(132, 0x31);
    Click(main, "mnuSensorBits");
    EXPECT_EQ(Heard(), std::vector<Bytes>{polledMode});
    EXPECT_EQ(sensor.Word(132), 0);
    sensor.ClearRecord();
    Click(main, "mnuAbout");
    EXPECT_TRUE(FindScreen("About")->isVisible());
    LetPass(20);
    EXPECT_TRUE(Heard().empty()) << "About has nothing to ask the sensor";
}

TEST_F(MainWindow, HardIronCalibrationAsksForFirmware3_1) {
    struct Case {
        const char* firmware;
        std::size_t boxes;
    };
    for (const auto& [firmware, boxes] : {Case{"3.0.20", 1}, Case{"3.1.00", 0}, Case{"", 1}}) {
        AppState.FirmwareText = firmware;
        AppState.FirmwareNumber = 3100;
        BoxAnswerer hand;
        Click(main, "mnuHardIronCal");
        ASSERT_EQ(hand.Count(), boxes) << firmware;
        if (boxes > 0) {
            EXPECT_EQ(hand.Texts()[0],
                      "Hard Iron Calibration is not supported in firmware version " +
                          std::string(firmware) + "!");
        }
    }
}

TEST_F(MainWindow, SaysThatTheHelpFileIsMissing) {
    BoxAnswerer hand;
    Click(main, "mnuHelpHelp");
    EXPECT_EQ(hand.Texts(), std::vector<std::string>{
                                "ORB-KL4 Version 204 Help.pdf missing from application path!"});
}

TEST_F(MainWindow, SmallScreensShowWhatIsKnown) {
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
