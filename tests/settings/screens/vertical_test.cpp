#include "settings/screens/settings_fixture.h"

#include <QWidget>

namespace orbkl4::test {

namespace {

constexpr const char* otherState = "ORB-KL4 is in state other than Vertical Gyro or Normal!";

class Vertical : public SettingsTest {
  protected:
    void SetWords(std::uint16_t word120, std::uint16_t word126) {
        sensor.SetWord(120, word120);
        sensor.SetWord(126, word126);
    }

    Screen& OpenRead() { return SettingsTest::OpenRead("Vertical"); }

    /// "normal", "vertical" or "" for the option that is on.
    static std::string Mode(const Screen& screen) {
        if (IsOn(screen, "optNormal")) return IsOn(screen, "optVertical") ? "both" : "normal";
        return IsOn(screen, "optVertical") ? "vertical" : "";
    }
};

}  // namespace

TEST_F(Vertical, ShowsTheStateThatTheTwoWordsMake) {
    struct Case {
        std::uint16_t word120, word126;
        const char* mode;
    };
    for (const auto& [word120, word126, mode] :
         {Case{0, 0, "vertical"}, Case{1, 100, "normal"}, Case{0, 100, ""}, Case{1, 0, ""},
          Case{1, 99, ""}}) {
        SetWords(word120, word126);
        const BoxAnswerer box({}, goOn);
        sensor.ClearRecord();
        Screen& screen = OpenRead();
        EXPECT_EQ(Mode(screen), mode);
        EXPECT_EQ(box.Texts(), *mode == '\0' ? Strings{otherState} : Strings{});
        EXPECT_FALSE(Get<QWidget>(screen, "fraMode").isEnabled());
        EXPECT_EQ(Heard(), (std::vector<Bytes>{{0x28, 0x00, 0x78}, {0x28, 0x00, 0x7E}}));
        ExpectIdle(screen);
        EXPECT_EQ(MousePointer(), Pointer::Default);
        Click(screen, "mnuReturn");
    }
}

TEST_F(Vertical, ASkippedWordThatWasNeverReadCountsAsZero) {
    SetWords(1, 0);
    sensor.ReplyOnceTo(0x28, {0x28, 0x00, 0x01, 0x00});
    const BoxAnswerer cancelling;
    Screen& screen = OpenRead();
    EXPECT_EQ(cancelling.Count(), 1U);
    EXPECT_EQ(Mode(screen), "vertical");
}

TEST_F(Vertical, SwitchesTheSensor) {
    const BoxAnswerer hand({}, goOn);
    SetWords(1, 100);
    Screen& screen = OpenRead();
    sensor.ClearRecord();
    Click(screen, "mnuSet");
    EXPECT_TRUE(screen.Menu("mnuSet").Checked());
    EXPECT_FALSE(screen.Menu("mnuRemove").Enabled());
    EXPECT_EQ(Mode(screen), "");
    ASSERT_TRUE(WaitFor([&] { return hand.Count() == 1; }));
    EXPECT_EQ(Mode(screen), "vertical");
    ExpectIdle(screen);
    Click(screen, "mnuRemove");
    EXPECT_FALSE(screen.Menu("mnuSet").Enabled());
    ASSERT_TRUE(WaitFor([&] { return hand.Count() == 2; }));
    EXPECT_EQ(Mode(screen), "normal");
    ExpectIdle(screen);
    EXPECT_EQ(hand.Texts(),
              (Strings{"Set Vertical Gyro Mode succeeded!", "Set Normal Mode succeeded!"}));
    EXPECT_EQ(Heard(), (std::vector<Bytes>{{0x29, 0x71, 0x00, 0x78, 0x00, 0x00, 0xAA},
                                           {0x29, 0x71, 0x00, 0x7E, 0x00, 0x00, 0xAA},
                                           {0x29, 0x71, 0x00, 0x78, 0x00, 0x01, 0xAA},
                                           {0x29, 0x71, 0x00, 0x7E, 0x00, 0x64, 0xAA}}));
}

TEST_F(Vertical, BothRepliesMustPass) {
    struct Case {
        const char* entry;
        std::vector<Bytes> replies;
        const char* message;
    };
    const char* vertical = "Set Vertical Gyro failed checksum!";
    const char* normal = "Remove Vertical Gyro failed checksum!";
    Screen& screen = OpenRead();
    for (const auto& [entry, replies, message] :
         std::vector<Case>{{"mnuSet", {badSum, written}, vertical},
                           {"mnuSet", {written, badSum}, vertical},
                           {"mnuSet", {written, oneByteMore}, malformed},
                           {"mnuRemove", {badSum, written}, normal},
                           {"mnuRemove", {written, badSum}, normal},
                           {"mnuRemove", {otherHeader, written}, malformed}}) {
        EXPECT_EQ(Told(screen, entry, replies), Strings{message});
        EXPECT_EQ(Mode(screen), "");
    }
}

TEST_F(Vertical, ASecondClickEndsTheWaitAndReturnFreesThePort) {
    SetWords(1, 100);
    const BoxAnswerer hand({}, goOn);
    Screen& screen = OpenRead();
    sensor.ClearRecord();
    sensor.SetSilent(true);
    Click(screen, "mnuRemove");
    EXPECT_TRUE(Get<MSComm>(screen, "MSComm2").PortOpen());
    Click(screen, "mnuRemove");
    ExpectIdle(screen);
    EXPECT_EQ(Mode(screen), "");
    Click(screen, "mnuSet");
    Click(screen, "mnuReturn");
    EXPECT_EQ(FindScreen("Vertical"), nullptr);
    EXPECT_EQ(Heard(4).size(), 4U);
    sensor.SetSilent(false);
    EXPECT_EQ(Mode(OpenRead()), "vertical") << "the words 0 and 0 have been written";
    EXPECT_EQ(hand.Count(), 0U);
}

}  // namespace orbkl4::test
