#include "running_program.h"
#include "simulated_sensor.h"

#include <gtest/gtest.h>

namespace fs = std::filesystem;

namespace orbkl4::test {
namespace {

/// An entry of the main menu, the screen that it opens, and how that is left: by a menu entry or
/// by a button.
struct Opening {
    const char* entry;
    const char* screen;
    const char* title;
    const char* leave;
};

constexpr Opening openings[] = {
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
};

constexpr Opening hiddenOpenings[] = {
    {"mnuAnalog", "Analog", "Analog Output", "mnuReturn"},
    {"mnuGains", "Gains", "Read/Write Current System Gains", "mnuReturn"},
    {"mnuVertical", "Vertical", "Vertical Gyro Mode", "mnuReturn"},
    {"mnuSelfTest", "SelfTest", "Self Test", "mnuReturn"},
    {"mnuSetCalcCycle", "CalcCycle", "Set Timer Tick Interval", "mnuReturn"},
};

void OpenAndLeave(RunningProgram& program, const Opening& opening) {
    SCOPED_TRACE(opening.entry);
    program.Choose("Main", opening.entry);
    program.AwaitScreen(opening.screen);
    EXPECT_EQ(program.Get(opening.screen, "", "windowTitle"), opening.title);
    const std::string leave = opening.leave;
    if (leave.starts_with("mnu")) {
        program.Choose(opening.screen, leave);
    } else {
        program.Press(opening.screen, leave);
    }
    program.AwaitNoScreen(opening.screen);
}

TEST(MenuTree, OpensEveryScreenOnceASensorIsConnected) {
    const Stage stage;
    const SimulatedSensor sensor(stage, {"--port", "16"});
    RunningProgram program(stage);
    program.AwaitScreen("Main");
    fs::copy_file(TIME_TICK_TABLE, stage.Logs() / "TimeTickTable.txt");
    program.Choose("Main", "mnuConnect");
    program.AwaitScreen("Connect");
    program.Turn("Connect", "SSTab1", "Manual");
    program.Type("Connect", "NumEditCommPort", "16");
    program.Await("Connect", "NumEditCommPort", "value", "16");
    program.Press("Connect", "cmdConnectManual");
    program.AwaitConnected();
    program.Answer("OK");
    program.AwaitNoScreen("Connect");

    for (const Opening& opening : openings) OpenAndLeave(program, opening);
    EXPECT_THROW(program.Choose("Main", "mnuGains"), std::runtime_error);
    program.Gesture("Main", "picORBKL4");
    for (const Opening& opening : hiddenOpenings) OpenAndLeave(program, opening);
    EXPECT_EQ(stage.ErrorLog(), "");

    program.Choose("Main", "mnuExit");
    EXPECT_EQ(program.Process().AwaitEnd().code, 0);
    // The port is kept for the next start, the line settings are stored empty.
    RunningProgram next(stage);
    next.AwaitScreen("Main");
    EXPECT_EQ(next.Get("Main", "mnuTools", "enabled"), "false");
    EXPECT_EQ(next.Get("Main", "mnuGains", "visible"), "false");
    next.Choose("Main", "mnuConnect");
    next.AwaitScreen("Connect");
    EXPECT_EQ(next.Get("Connect", "NumEditCommPort", "value"), "16");
    EXPECT_EQ(next.Get("Connect", "optBaud38400", "checked"), "true");
}

}  // namespace
}  // namespace orbkl4::test
