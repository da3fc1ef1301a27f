#include "link/screens/runs_fixture.h"

#include <array>

namespace orbkl4::test {

namespace {

constexpr const char* otherState = "ORB-KL4 is in state other than Vertical Gyro or Normal!";

class Vertical : public RunTest {
  protected:
    void SetWords(std::uint16_t word120, std::uint16_t word126) {
        sensor.SetWord(120, word120);
        sensor.SetWord(126, word126);
    }

    /// "normal", "vertical" or "" for the option that is on.
    std::string Mode() const {
        if (IsOn("optNormal")) return IsOn("optVertical") ? "both" : "normal";
        return IsOn("optVertical") ? "vertical" : "";
    }
};

}  // namespace

TEST_F(Vertical, ShowsTheModeForTheTwoWords) {
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
        OpenRead("Vertical");
        EXPECT_EQ(Mode(), mode);
        EXPECT_EQ(box.Texts(), *mode == '\0' ? Strings{otherState} : Strings{});
        EXPECT_EQ(Disabled(), Names{"fraMode"});
        EXPECT_EQ(Heard(), (std::vector<Bytes>{ReadRequest(120), ReadRequest(126)}));
        ExpectIdle();
        Click(*screen, "mnuReturn");
    }
}

TEST_F(Vertical, TheOptionsLookDisabledAndTellWhereTheModeIsSet) {
    OpenRead("Vertical");
    const auto ink = [&](const char* control) {
        const auto& widget = Get<QWidget>(*screen, control);
        return widget.palette().color(QPalette::WindowText);
    };
    EXPECT_NE(ink("optNormal"), ink("lblHint"));
    const std::string hint = "The options show the sensor's mode. Set it in the File menu.";
    EXPECT_EQ(Text(*screen, "lblHint"), hint);
    EXPECT_EQ(Property(*screen, "fraMode", "toolTip"), hint);
}

TEST_F(Vertical, SwitchesTheSensor) {
    const BoxAnswerer boxes({}, goOn);
    SetWords(1, 100);
    OpenRead("Vertical");
    sensor.ClearRecord();
    using Case = std::array<const char*, 3>;
    for (const auto& [entry, other, mode] :
         {Case{"mnuSet", "mnuRemove", "vertical"}, Case{"mnuRemove", "mnuSet", "normal"}}) {
        Click(*screen, entry);
        EXPECT_EQ(Disabled(), (Names{"fraMode", other}));
        EXPECT_EQ(Mode(), "");
        ASSERT_TRUE(WaitFor([&, entry = entry] { return !screen->Menu(entry).Checked(); }));
        EXPECT_EQ(Mode(), mode);
        ExpectIdle();
    }
    EXPECT_EQ(boxes.Texts(),
              (Strings{"Set Vertical Gyro Mode succeeded!", "Set Normal Mode succeeded!"}));
    EXPECT_EQ(Heard(), (std::vector<Bytes>{{0x29, 0x71, 0x00, 0x78, 0x00, 0x00, 0xAA},
                                           {0x29, 0x71, 0x00, 0x7E, 0x00, 0x00, 0xAA},
                                           {0x29, 0x71, 0x00, 0x78, 0x00, 0x01, 0xAA},
                                           {0x29, 0x71, 0x00, 0x7E, 0x00, 0x64, 0xAA}}));
}

TEST_F(Vertical, BothRepliesMustPass) {
    OpenRead("Vertical");
    const char* vertical = "Set Vertical Gyro failed checksum!";
    EXPECT_EQ(Messages("mnuSet", {badSum, written}), Strings{vertical});
    EXPECT_EQ(Messages("mnuSet", {written, badSum}), Strings{vertical});
    EXPECT_EQ(Messages("mnuSet", {written, oneByteMore}), Strings{malformed});
    EXPECT_EQ(Mode(), "");
    EXPECT_EQ(Messages("mnuRemove", {written, badSum}),
              Strings{"Remove Vertical Gyro failed checksum!"});
    EXPECT_EQ(Mode(), "");
}

TEST_F(Vertical, ASecondClickEndsTheWait) {
    OpenRead("Vertical");
    sensor.SetSilent(true);
    for (const char* entry : {"mnuSet", "mnuRemove"}) {
        Click(*screen, entry);
        EXPECT_TRUE(screen->Menu(entry).Checked()) << entry;
        Click(*screen, entry);
        ExpectIdle();
        EXPECT_EQ(Mode(), "") << entry;
    }
}

}  // namespace orbkl4::test
