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
    bool hidden = false;
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
    {"mnuAnalog", "Analog", "Analog Output", "mnuReturn", true},
    {"mnuGains", "Gains", "Read/Write Current System Gains", "mnuReturn", true},
    {"mnuVertical", "Vertical", "Vertical Gyro Mode", "mnuReturn", true},
    {"mnuSelfTest", "SelfTest", "Self Test", "mnuReturn", true},
    {"mnuSetCalcCycle", "CalcCycle", "Set Timer Tick Interval", "mnuReturn", true},
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
    const SimulatedSensor sensor(stage, {"--port", "1"});
    RunningProgram program(stage);
    program.Search();
    program.Answer("OK");
    program.AwaitNoScreen("Connect");
    fs::copy_file(TIME_TICK_TABLE, stage.Logs() / "TimeTickTable.txt");

    for (const Opening& opening : openings) {
        if (opening.hidden) {
            EXPECT_THROW(program.Choose("Main", opening.entry), std::runtime_error);
            program.Unlock(opening.entry);
        }
        OpenAndLeave(program, opening);
    }
    EXPECT_EQ(stage.ErrorLog(), "");
    program.Choose("Main", "mnuExit");
    EXPECT_EQ(program.Process().AwaitEnd(), 0);
}

}  // namespace
}  // namespace orbkl4::test
