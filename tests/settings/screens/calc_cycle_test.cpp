#include "platform/controls/cw_num_edit.h"
#include "platform/controls/cw_slide.h"
#include "platform/controls/option_button.h"
#include "platform/system/folders.h"
#include "settings/screens/settings_fixture.h"

#include <QFile>
#include <QGroupBox>

#include <utility>

namespace orbkl4::test {

namespace {

constexpr const char* good = "Kestrelmoor ORB-KL4 Time Tick Table 3.1.01\n";
constexpr const char* another = "Kestrelmoor ORB-KL4 Time Tick Table 3.1.02\n";

/// A table of `count` rows; the slider's 2.40 is in it twice, its 2.30 only in another form.
std::string Table(const char* title, int count) {
    std::string table = title;
    table += "2.3,16,16,256,1\n 2.40 , 1,10, 250 , 8 \n2.40,16,16,256,1\n";
    for (int row = 3; row < count; ++row) table += "9.99,16,16,256,1\n";
    return table;
}

class CalcCycle : public SettingsTest {
  protected:
    CalcCycle() {
        sensor.SetWord(238, 4);
        sensor.SetWord(240, 10);
        sensor.SetWord(242, 125);
        sensor.SetWord(246, 5);
        WriteTable(Table(good, 231));
    }

    static QString TablePath() { return LogsFolder() + QStringLiteral("/TimeTickTable.txt"); }

    static void WriteTable(const std::string& contents) {
        QFile file(TablePath());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(contents.data(), static_cast<qint64>(contents.size()));
    }

    Screen& OpenRead() { return SettingsTest::OpenRead("CalcCycle"); }

    static double Number(const Screen& screen, const char* name) {
        return Get<CWNumEdit>(screen, name).Value();
    }
    static void Slide(const Screen& screen, double value) {
        Get<CWSlide>(screen, "CWSlide1").Value(value);
    }
};

}  // namespace

TEST_F(CalcCycle, ReadsTheWordsAsItOpens) {
    const BoxAnswerer hand({}, goOn);
    Screen& screen = OpenReading("CalcCycle");
    for (const char* entry : {"mnuRead", "mnuCalcCycle", "mnuCalcCycleDefault"})
        EXPECT_FALSE(screen.Menu(entry).Enabled()) << entry;
    EXPECT_EQ(MousePointer(), Pointer::Hourglass);
    EXPECT_EQ(Text(screen, "txtCC"), "0.0000");
    ASSERT_TRUE(AwaitRead(screen));
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
    ExpectIdle(screen);
    EXPECT_EQ(MousePointer(), Pointer::Default);
    sensor.SetWord(238, 2);
    Click(screen, "mnuRead");
    ASSERT_TRUE(AwaitRead(screen));
    EXPECT_TRUE(IsOn(screen, "opt4")) << "there is no option for 2";
    EXPECT_EQ(hand.Count(), 0U);
}

TEST_F(CalcCycle, ASilentSensorIsAnErrorOfEachTickAndReturnEndsIt) {
    const BoxAnswerer hand({}, goOn);
    sensor.SetSilent(true);
    Screen& screen = OpenReading("CalcCycle", 20);
    ASSERT_TRUE(WaitFor([&] { return hand.Count() == 1; }));
    EXPECT_EQ(hand.Error(0), "9 TimerRead_Timer CalcCycle");
    Click(screen, "mnuReturn");
    EXPECT_EQ(MousePointer(), Pointer::Default);
    EXPECT_EQ(ActiveScreenName(), "Main");
    sensor.SetSilent(false);
    OpenRead();  // the port is free again
    EXPECT_EQ(hand.Count(), 1U);
}

TEST_F(CalcCycle, OnlyAGoodTableLetsTheSliderPick) {
    struct Case {
        std::string contents;
        const char* message;
    };
    for (const auto& [contents, message] :
         std::vector<Case>{{Table(good, 231), ""},
                           {"", "Time Tick Table not found in Logs directory!"},
                           {Table(another, 231), "Time Tick Table not valid!"},
                           {Table(good, 230), "Time Tick Table loading failed!"}}) {
        SCOPED_TRACE(message);
        WriteTable(contents);
        if (contents.empty()) QFile::remove(TablePath());
        const BoxAnswerer box({}, goOn);
        Screen& screen = OpenRead();
        const bool loaded = *message == '\0';
        EXPECT_EQ(box.Texts(), loaded ? Strings{} : Strings{message});
        EXPECT_EQ(Get<QGroupBox>(screen, "fraCalc1").isEnabled(), loaded);
        Get<CWNumEdit>(screen, "NumEdit246").Value(1);
        EXPECT_EQ(Text(screen, "txtCC"), ".5000") << "by hand it goes on";
        Click(screen, "mnuReturn");
    }
}

TEST_F(CalcCycle, TheSliderPicksARowByItsText) {
    const BoxAnswerer hand({}, goOn);
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
    const BoxAnswerer hand({}, goOn);
    Screen& screen = OpenRead();
    sensor.ClearRecord();
    Click(screen, "mnuCalcCycleDefault");
    EXPECT_TRUE(screen.Menu("mnuCalcCycle").Checked());
    EXPECT_FALSE(screen.Menu("mnuCalcCycleDefault").Enabled());
    EXPECT_TRUE(screen.Menu("mnuRead").Enabled());
    ASSERT_TRUE(WaitFor([&] { return hand.Count() == 1; }));
    EXPECT_EQ(hand.Texts(), Strings{"Set Calc Cycle succeeded!"});
    ExpectIdle(screen);
    EXPECT_EQ(Text(screen, "txtCC"), "6.5536");
    EXPECT_EQ(Heard(), (std::vector<Bytes>{{0x29, 0x71, 0x00, 0xEE, 0x00, 0x10, 0xAA},
                                           {0x29, 0x71, 0x00, 0xF0, 0x00, 0x10, 0xAA},
                                           {0x29, 0x71, 0x00, 0xF2, 0x01, 0x00, 0xAA},
                                           {0x29, 0x71, 0x00, 0xF6, 0x00, 0x01, 0xAA}}));
}

TEST_F(CalcCycle, OnlyTheFirstAndLastReplyMustPass) {
    using Case = std::pair<std::vector<Bytes>, const char*>;
    const char* succeeded = "Set Calc Cycle succeeded!";
    const char* failed = "Set Calc Cycle failed checksum!";
    const Screen& screen = OpenRead();
    for (const auto& [replies, message] :
         {Case{{badSum, written, written, written}, failed},
          Case{{written, badSum, written, written}, succeeded},
          Case{{written, written, badSum, written}, succeeded},
          Case{{written, written, written, badSum}, failed},
          Case{{written, written, otherHeader, written}, malformed},
          Case{{written, written, written, oneByteMore}, malformed}})
        EXPECT_EQ(Told(screen, "mnuCalcCycle", replies), Strings{message});
}

TEST_F(CalcCycle, ASecondClickEndsTheWaitAndAPortThatIsGoneIsReported) {
    const BoxAnswerer hand({}, goOn);
    const Screen& screen = OpenRead();
    sensor.SetSilent(true);
    Click(screen, "mnuCalcCycle");
    EXPECT_TRUE(screen.Menu("mnuCalcCycle").Checked());
    Click(screen, "mnuCalcCycle");
    ExpectIdle(screen);
    EXPECT_EQ(hand.Count(), 0U);
    AppState.CommPort = 99;
    Click(screen, "mnuCalcCycle");
    ASSERT_EQ(hand.Count(), 2U);
    EXPECT_EQ(hand.Error(0), "8002 OpenCommPort CalcCycle");
    EXPECT_EQ(hand.Error(1), "8018 mnuCalcCycle CalcCycle");
    EXPECT_TRUE(screen.Menu("mnuCalcCycle").Checked()) << "it stays as it is";
}

}  // namespace orbkl4::test
