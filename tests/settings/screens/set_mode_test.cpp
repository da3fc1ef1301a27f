#include "link/screens/runs_fixture.h"
#include "platform/controls/option_button.h"

namespace orbkl4::test {

namespace {

struct Mode {
    const char* option;
    std::uint8_t byte;
    const char* name;
};

constexpr Mode modes[] = {
    {"optRSB", 0x01, "Raw Sensor Bits"},
    {"optGSV", 0x02, "Gyro-Stabilized Vectors"},
    {"optIV", 0x03, "Instantaneous Vectors"},
    {"optGSQ", 0x05, "Gyro-Stabilized Quaternions"},
    {"optIQ", 0x04, "Instantaneous Quaternions"},
    {"optGSM", 0x0B, "Gyro-Stabilized Orientation Matrix"},
    {"optIM", 0x0A, "Instantaneous Orientation Matrix"},
    {"optGSEA", 0x0E, "Gyro-Stabilized Euler Angles"},
    {"optIEA", 0x0D, "Instantaneous Euler Angles"},
    {"optQIV", 0x0C, "Quaternions and Instant Vectors"},
    {"optQCV", 0x12, "Quaternions and Comp Vectors"},
    {"optAAV", 0x31, "Euler Angles, Accels and Vectors"},
};

class SetMode : public ScreenTest {
  protected:
    Screen& main = *FindScreen("Main");
    BoxAnswerer boxes{{}, goOn};
};

}  // namespace

TEST_F(SetMode, WritesTheByteOfTheChosenModeAndNamesIt) {
    for (const auto& [option, byte, name] : modes) {
        Click(main, "mnuSetMode");
        Screen& screen = *FindScreen("SetMode");
        EXPECT_TRUE(Get<OptionButton>(screen, "optPolled").Value());
        Get<OptionButton>(screen, option).click();
        sensor.ClearRecord();
        Press(screen, "cmdOK");
        EXPECT_EQ(boxes.Texts().back(),
                  std::string("The ORB-KL4 is now operating in CONTINUOUS ") + name + " mode!");
        EXPECT_EQ(FindScreen("SetMode"), nullptr);
        ASSERT_TRUE(WaitFor([&, byte = byte] { return sensor.Word(132) == byte; })) << option;
        EXPECT_EQ(Heard(), (std::vector<Bytes>{{0x29, 0x71, 0x00, 0x84, 0x00, byte, 0xAA}}));
    }
    EXPECT_EQ(boxes.Count(), std::size(modes));
}

TEST_F(SetMode, CancelAndPolledLeaveThePolledModeThatOpeningSet) {
    sensor.SetWord(132, 0x0E);
    Click(main, "mnuSetMode");
    Press(*FindScreen("SetMode"), "cmdCancel");
    EXPECT_EQ(FindScreen("SetMode"), nullptr);
    EXPECT_EQ(sensor.Word(132), 0);
    EXPECT_EQ(boxes.Count(), 0U);
    sensor.SetSilent(true);
    Press(OpenModal("SetMode"), "cmdOK");
    EXPECT_EQ(boxes.Texts(), Strings{"The ORB-KL4 is now operating in POLLED mode!"})
        << "no reply is read";
}

TEST_F(SetMode, FailsWhereThePortCantBeUsed) {
    AppState.CommPort = 99;
    Screen& screen = OpenModal("SetMode");
    Get<OptionButton>(screen, "optAAV").click();
    Press(screen, "cmdOK");
    ASSERT_EQ(boxes.Count(), 2U);
    EXPECT_EQ(boxes.Error(0), "8002 OpenCommPort SetMode");
    EXPECT_EQ(boxes.Texts()[1], "The Mode Command failed to write to the ORB-KL4!");
    EXPECT_EQ(FindScreen("SetMode"), nullptr);
}

}  // namespace orbkl4::test
