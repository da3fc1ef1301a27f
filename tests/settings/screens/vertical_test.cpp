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

    Screen& OpenRead() {
        Screen& screen = OpenReading("Vertical");
        EXPECT_TRUE(WaitFor([&] { return screen.Menu("mnuRead").Enabled(); }));
        return screen;
    }

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
         {Case{0, 0, "vertical"}, Case{1, 100, "normal"}, Case{0, 100, ""}, Case{1, 99, ""}}) {
        SetWords(word120, word126);
        const BoxHand box({}, goOn);
        sensor.ClearRecord();
        Screen& screen = OpenRead();
        EXPECT_EQ(Mode(screen), mode);
        EXPECT_EQ(box.Texts(), *mode == '\0' ? Strings{otherState} : Strings{});
        EXPECT_FALSE(Get<QWidget>(screen, "fraMode").isEnabled());
        EXPECT_EQ(Heard(), (std::vector<Bytes>{{0x28, 0x00, 0x78}, {0x28, 0x00, 0x7E}}));
        EXPECT_FALSE(IsOpen(screen, "MSComm3"));
        EXPECT_EQ(MousePointer(), Pointer::Default);
        Click(screen, "mnuReturn");
    }
}

TEST_F(Vertical, ASkippedWordKeepsItsLastValue) {
    SetWords(1, 0);
    sensor.ReplyOnceTo(0x28, {0x28, 0x00, 0x01, 0x00});
    const BoxHand cancelling;
    Screen& screen = OpenRead();
    EXPECT_EQ(cancelling.Texts(),
              Strings{"Read EEPROM Error: packet length is <> 7 bytes! Click Retry to attempt "
                      "re-read or Cancel to skip over."});
    EXPECT_EQ(Mode(screen), "vertical") << "120 was never read and counts as 0";
    for (int reply = 0; reply < 2; ++reply)
        sensor.ReplyOnceTo(0x28, {0x27, 0x00, 0x01, 0x00, 0x00, 0x00, 0x28});
    SetWords(1, 100);
    Click(screen, "mnuRead");
    ASSERT_TRUE(WaitFor([&] { return screen.Menu("mnuRead").Enabled(); }));
    EXPECT_EQ(cancelling.Count(), 3U);
    EXPECT_EQ(Mode(screen), "vertical");
}

TEST_F(Vertical, SwitchesTheSensor) {
    const BoxHand hand({}, goOn);
    SetWords(1, 100);
    Screen& screen = OpenRead();
    sensor.ClearRecord();
    Click(screen, "mnuSet");
    EXPECT_TRUE(screen.Menu("mnuSet").Checked());
    EXPECT_FALSE(screen.Menu("mnuRemove").Enabled());
    EXPECT_EQ(Mode(screen), "");
    ASSERT_TRUE(WaitFor([&] { return hand.Count() == 1; }));
    EXPECT_EQ(Mode(screen), "vertical");
    EXPECT_TRUE(screen.Menu("mnuRemove").Enabled());
    EXPECT_FALSE(screen.Menu("mnuSet").Checked());
    Click(screen, "mnuRemove");
    EXPECT_FALSE(screen.Menu("mnuSet").Enabled());
    ASSERT_TRUE(WaitFor([&] { return hand.Count() == 2; }));
    EXPECT_EQ(Mode(screen), "normal");
    EXPECT_TRUE(screen.Menu("mnuSet").Enabled());
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
        const char* other;
        const char* port;
        std::vector<Bytes> replies;
        const char* message;
    };
    const char* vertical = "Set Vertical Gyro failed checksum!";
    const char* normal = "Remove Vertical Gyro failed checksum!";
    const char* malformed = "Return bytes and/or header failed!";
    Screen& screen = OpenRead();
    for (const auto& [entry, other, port, replies, message] :
         std::vector<Case>{{"mnuSet", "mnuRemove", "MSComm1", {badSum, written}, vertical},
                           {"mnuSet", "mnuRemove", "MSComm1", {written, badSum}, vertical},
                           {"mnuSet", "mnuRemove", "MSComm1", {written, oneByteMore}, malformed},
                           {"mnuRemove", "mnuSet", "MSComm2", {badSum, written}, normal},
                           {"mnuRemove", "mnuSet", "MSComm2", {written, badSum}, normal},
                           {"mnuRemove", "mnuSet", "MSComm2", {otherHeader, written}, malformed}}) {
        const BoxHand box({}, goOn);
        AnswerWrites(replies);
        Click(screen, entry);
        ASSERT_TRUE(WaitFor([&] { return !screen.Menu(entry).Checked(); }));
        EXPECT_EQ(box.Texts(), Strings{message});
        EXPECT_EQ(Mode(screen), "");
        EXPECT_TRUE(screen.Menu(other).Enabled());
        EXPECT_FALSE(IsOpen(screen, port));
    }
}

TEST_F(Vertical, ASecondClickEndsTheWaitAndReturnFreesThePort) {
    SetWords(1, 100);
    const BoxHand hand({}, goOn);
    Screen& screen = OpenRead();
    sensor.SetSilent(true);
    Click(screen, "mnuRemove");
    EXPECT_TRUE(IsOpen(screen, "MSComm2"));
    Click(screen, "mnuRemove");
    EXPECT_FALSE(IsOpen(screen, "MSComm2"));
    EXPECT_FALSE(screen.Menu("mnuRemove").Checked());
    EXPECT_TRUE(screen.Menu("mnuSet").Enabled());
    EXPECT_EQ(Mode(screen), "");
    Click(screen, "mnuSet");
    Click(screen, "mnuReturn");
    EXPECT_EQ(FindScreen("Vertical"), nullptr);
    sensor.SetSilent(false);
    EXPECT_EQ(Mode(OpenRead()), "vertical") << "the words 0 and 0 have been written";
    EXPECT_EQ(hand.Count(), 0U);
}

}  // namespace orbkl4::test
