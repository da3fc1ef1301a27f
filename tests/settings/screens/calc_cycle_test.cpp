#include "platform/controls/cw_num_edit.h"
#include "platform/controls/cw_slide.h"
#include "platform/controls/option_button.h"
#include "platform/program_folder.h"
#include "settings/screens/settings_fixture.h"

#include <QFile>
#include <QGroupBox>

namespace orbkl4::test {

namespace {

constexpr const char* title = "Kestrelmoor ORB-KL4 Time Tick Table 3.1.01";

/// Rows for 2.00, 2.10 ... all of 16 x 16 x 256 x 1, but for 2.30 and 2.40 (1 x 10 x 250 x 8).
std::string Rows(int count, const std::string& lineEnd) {
    std::string rows;
    for (int tenth = 20; tenth < 20 + count; ++tenth) {
        const std::string key = std::to_string(tenth / 10) + "." + std::to_string(tenth % 10) + "0";
        if (tenth == 23)
            rows += " 9.99 , 16 , 16 , 256 , 1 ";  // takes 2.30 out of the table
        else
            rows += key + (tenth == 24 ? " , 1,10, 250 , 8 " : ",16,16,256,1");
        rows += lineEnd;
    }
    return rows;
}

std::string Table(const std::string& lineEnd) { return title + lineEnd + Rows(231, lineEnd); }

class CalcCycle : public SettingsTest {
  protected:
    CalcCycle() {
        sensor.SetWord(238, 4);
        sensor.SetWord(240, 10);
        sensor.SetWord(242, 125);
        sensor.SetWord(246, 5);
        WriteTable(Table("\n"));
    }

    static QString TablePath() { return LogsFolder() + QStringLiteral("/TimeTickTable.txt"); }

    static void WriteTable(const std::string& contents) {
        QFile file(TablePath());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(contents.data(), static_cast<qint64>(contents.size()));
    }

    /// The screen, its first read over.
    Screen& OpenRead() {
        Screen& screen = OpenReading("CalcCycle");
        EXPECT_TRUE(WaitFor([&] { return screen.Menu("mnuRead").Enabled(); }));
        return screen;
    }

    static double Number(const Screen& screen, const char* name) {
        return Get<CWNumEdit>(screen, name).Value();
    }
    static bool AutoSet(const Screen& screen) {
        return Get<QGroupBox>(screen, "fraCalc1").isEnabled();
    }
    static void Slide(const Screen& screen, double value) {
        Get<CWSlide>(screen, "CWSlide1").Value(value);
    }
};

}  // namespace

TEST_F(CalcCycle, ReadsTheWordsAsItOpens) {
    const BoxHand hand({}, goOn);
    Screen& screen = OpenReading("CalcCycle");
    for (const char* entry : {"mnuRead", "mnuCalcCycle", "mnuCalcCycleDefault"})
        EXPECT_FALSE(screen.Menu(entry).Enabled()) << entry;
    EXPECT_EQ(MousePointer(), Pointer::Hourglass);
    EXPECT_EQ(Text(screen, "txtCC"), "0.0000");
    ASSERT_TRUE(WaitFor([&] { return screen.Menu("mnuRead").Enabled(); }));
    EXPECT_EQ(Heard(), (std::vector<Bytes>{{0x28, 0x00, 0xEE},
                                           {0x28, 0x00, 0xF0},
                                           {0x28, 0x00, 0xF2},
                                           {0x28, 0x00, 0xF4},
                                           {0x28, 0x00, 0xF6}}));
    EXPECT_TRUE(IsOn(screen, "opt4"));
    EXPECT_EQ(Number(screen, "NumEdit240"), 10);
    EXPECT_EQ(Number(screen, "NumEdit242"), 125);
    EXPECT_EQ(Number(screen, "NumEdit246"), 5);
    EXPECT_EQ(Text(screen, "txtCC"), "2.5000");  // 4 x 10 x 125 x 5 x 100 ns
    EXPECT_TRUE(screen.Menu("mnuCalcCycle").Enabled());
    EXPECT_TRUE(screen.Menu("mnuCalcCycleDefault").Enabled());
    EXPECT_FALSE(IsOpen(screen, "MSComm3"));
    EXPECT_EQ(MousePointer(), Pointer::Default);
    EXPECT_EQ(hand.Count(), 0U);
}

TEST_F(CalcCycle, AStrangePrescalerLeavesTheOptionAndASkippedWordItsValue) {
    sensor.SetWord(238, 2);
    sensor.ReplyOnceTo(0x28, {0x28, 0x00, 0x02, 0x00, 0x00, 0x00, 0x2A});
    sensor.ReplyOnceTo(0x28, {0x28, 0x00, 0x07, 0x00, 0x01, 0x00, 0x31});  // 0x30 would be right
    const BoxHand cancelling;
    Screen& screen = OpenRead();
    EXPECT_EQ(cancelling.Texts(),
              Strings{"Read EEPROM Error: checksum failed! Click Retry to attempt re-read or "
                      "Cancel to skip over."});
    EXPECT_TRUE(IsOn(screen, "opt16"));
    EXPECT_EQ(Number(screen, "NumEdit240"), 0);
    EXPECT_EQ(Number(screen, "NumEdit246"), 5);
}

TEST_F(CalcCycle, ASilentSensorIsAnErrorOfEachTickAndReturnEndsIt) {
    const BoxHand hand({}, goOn);
    sensor.SetSilent(true);
    Screen& screen = OpenReading("CalcCycle");
    ASSERT_TRUE(WaitFor([&] { return hand.Count() == 1; }));
    EXPECT_NE(hand.Texts()[0].find("Number: 9\r\nSource: TimerRead_Timer\r\nScreen: CalcCycle"),
              std::string::npos);
    EXPECT_TRUE(Get<Timer>(screen, "TimerRead").Enabled());
    EXPECT_EQ(Heard().size(), 1U) << "nothing is asked anew";
    Click(screen, "mnuReturn");
    EXPECT_EQ(MousePointer(), Pointer::Default);
    EXPECT_EQ(ActiveScreenName(), "Main");
    sensor.SetSilent(false);
    OpenRead();  // the port is free again
    EXPECT_EQ(hand.Count(), 1U);
}

TEST_F(CalcCycle, OnlyAGoodTableLetsTheSliderPick) {
    struct Case {
        const char* what;
        std::string contents;
        const char* message;
    };
    const std::string lf = "\n";
    for (const auto& [what, contents, message] : std::vector<Case>{
             {"lines ended by LF", Table(lf), ""},
             {"lines ended by CR LF", Table("\r\n"), ""},
             {"missing", "", "Time Tick Table not found in Logs directory!"},
             {"another release", "Kestrelmoor ORB-KL4 Time Tick Table 3.1.02\n" + Rows(231, lf),
              "Time Tick Table not valid!"},
             {"230 rows", title + lf + Rows(230, lf), "Time Tick Table loading failed!"},
             {"three commas", title + lf + "1.90,16,16,256\n" + Rows(230, lf),
              "Time Tick Table loading failed!"}}) {
        WriteTable(contents);
        if (contents.empty()) QFile::remove(TablePath());
        const BoxHand box({}, goOn);
        Screen& screen = OpenRead();
        const bool good = *message == '\0';
        EXPECT_EQ(box.Texts(), good ? Strings{} : Strings{message}) << what;
        EXPECT_EQ(AutoSet(screen), good) << what;
        Get<CWNumEdit>(screen, "NumEdit246").Value(1);
        EXPECT_EQ(Text(screen, "txtCC"), ".5000") << what << ": by hand it goes on";
        if (good) Slide(screen, 2.4);
        EXPECT_EQ(Text(screen, "txtCC"), good ? "2.0000" : ".5000") << what;
        Click(screen, "mnuReturn");
    }
}

TEST_F(CalcCycle, TheSliderPicksARowByItsText) {
    const BoxHand hand({}, goOn);
    Screen& screen = OpenRead();
    EXPECT_EQ(Text(screen, "lblSlider"), "2.00");
    Slide(screen, 2.4);
    EXPECT_EQ(Text(screen, "lblSlider"), "2.40");
    EXPECT_TRUE(IsOn(screen, "opt1"));
    EXPECT_EQ(Number(screen, "NumEdit240"), 10);
    EXPECT_EQ(Number(screen, "NumEdit242"), 250);
    EXPECT_EQ(Number(screen, "NumEdit246"), 8);
    Slide(screen, 2.3);
    EXPECT_EQ(Text(screen, "txtCC"), "Calc errored!") << "no such row";
    EXPECT_EQ(Number(screen, "NumEdit242"), 250);
    Get<OptionButton>(screen, "opt16").click();
    EXPECT_EQ(Text(screen, "txtCC"), "32.0000");
}

TEST_F(CalcCycle, TheDefaultIsSetAndWritten) {
    const BoxHand hand({}, goOn);
    Screen& screen = OpenRead();
    sensor.ClearRecord();
    Click(screen, "mnuCalcCycleDefault");
    EXPECT_TRUE(screen.Menu("mnuCalcCycle").Checked());
    EXPECT_FALSE(screen.Menu("mnuCalcCycleDefault").Enabled());
    EXPECT_TRUE(screen.Menu("mnuRead").Enabled());
    ASSERT_TRUE(WaitFor([&] { return hand.Count() == 1; }));
    EXPECT_EQ(hand.Texts()[0], "Set Calc Cycle succeeded!");
    EXPECT_FALSE(screen.Menu("mnuCalcCycle").Checked());
    EXPECT_TRUE(screen.Menu("mnuCalcCycleDefault").Enabled());
    EXPECT_FALSE(IsOpen(screen, "MSComm1"));
    EXPECT_EQ(Text(screen, "txtCC"), "6.5536");
    EXPECT_EQ(Heard(), (std::vector<Bytes>{{0x29, 0x71, 0x00, 0xEE, 0x00, 0x10, 0xAA},
                                           {0x29, 0x71, 0x00, 0xF0, 0x00, 0x10, 0xAA},
                                           {0x29, 0x71, 0x00, 0xF2, 0x01, 0x00, 0xAA},
                                           {0x29, 0x71, 0x00, 0xF6, 0x00, 0x01, 0xAA}}));
}

TEST_F(CalcCycle, OnlyTheFirstAndLastReplyMustPass) {
    struct Case {
        const char* what;
        std::vector<Bytes> replies;
        const char* message;
    };
    Screen& screen = OpenRead();
    for (const auto& [what, replies, message] : std::vector<Case>{
             {"bad first", {badSum, written, written, written}, "Set Calc Cycle failed checksum!"},
             {"bad second", {written, badSum, written, written}, "Set Calc Cycle succeeded!"},
             {"bad third", {written, written, badSum, written}, "Set Calc Cycle succeeded!"},
             {"bad fourth", {written, written, written, badSum}, "Set Calc Cycle failed checksum!"},
             {"other header",
              {written, written, otherHeader, written},
              "Return bytes and/or header failed!"},
             {"one byte more",
              {written, written, written, oneByteMore},
              "Return bytes and/or header failed!"}}) {
        const BoxHand box({}, goOn);
        AnswerWrites(replies);
        Click(screen, "mnuCalcCycle");
        ASSERT_TRUE(WaitFor([&] { return !screen.Menu("mnuCalcCycle").Checked(); })) << what;
        EXPECT_EQ(box.Texts(), Strings{message}) << what;
        EXPECT_TRUE(screen.Menu("mnuCalcCycleDefault").Enabled()) << what;
        EXPECT_FALSE(IsOpen(screen, "MSComm1")) << what;
    }
}

TEST_F(CalcCycle, ASecondClickEndsTheWaitForReplies) {
    const BoxHand hand({}, goOn);
    Screen& screen = OpenRead();
    AnswerWrites({written, written, written, {}});
    sensor.ClearRecord();
    Click(screen, "mnuCalcCycle");
    ASSERT_TRUE(WaitFor([this] { return Heard().size() == 4; }));
    LetPass(50);
    EXPECT_TRUE(screen.Menu("mnuCalcCycle").Checked()) << "three replies are no answer";
    Click(screen, "mnuCalcCycle");
    EXPECT_FALSE(screen.Menu("mnuCalcCycle").Checked());
    EXPECT_TRUE(screen.Menu("mnuCalcCycleDefault").Enabled());
    EXPECT_FALSE(IsOpen(screen, "MSComm1"));
    EXPECT_EQ(hand.Count(), 0U);
}

TEST_F(CalcCycle, APortThatIsGoneIsReportedAndLeavesTheEntryAsItIs) {
    const BoxHand hand({}, goOn);
    Screen& screen = OpenRead();
    AppState.CommPort = 99;
    Click(screen, "mnuCalcCycle");
    ASSERT_EQ(hand.Count(), 2U);
    EXPECT_NE(hand.Texts()[0].find("Source: OpenCommPort\r\nScreen: CalcCycle"), std::string::npos);
    EXPECT_NE(hand.Texts()[1].find("Number: 8018\r\nSource: mnuCalcCycle\r\nScreen: CalcCycle"),
              std::string::npos);
    EXPECT_TRUE(screen.Menu("mnuCalcCycle").Checked());
}

}  // namespace orbkl4::test
