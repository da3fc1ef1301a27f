#include "link/screens/runs_fixture.h"
#include "platform/controls/cw_num_edit.h"
#include "platform/controls/cw_slide.h"
#include "platform/controls/option_button.h"
#include "platform/system/folders.h"

#include <QFile>

#include <utility>

namespace orbkl4::test {

namespace {

constexpr const char* good = "Kestrelmoor ORB-KL4 Time Tick Table 3.1.01\n";

/// A table of `count` rows, with two rows for 2.40 and none with the text "2.30".
std::string Table(const char* title, int count) {
    std::string table = title;
    table += "2.3,16,16,256,1\n 2.40 , 1,10, 250 , 8 \n2.40,16,16,256,1\n";
    for (int row = 3; row < count; ++row) table += "9.99,16,16,256,1\n";
    return table;
}

class CalcCycle : public RunTest {
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

    /// The four words as the screen shows them.
    std::vector<double> Words() const {
        std::vector<double> words;
        for (const auto& [option, value] : {std::pair{"opt1", 1}, {"opt4", 4}, {"opt16", 16}})
            if (IsOn(option)) words.push_back(value);
        for (const char* field : {"NumEdit240", "NumEdit242", "NumEdit246"})
            words.push_back(Get<CWNumEdit>(*screen, field).Value());
        return words;
    }
    std::string Interval() const { return Text(*screen, "txtCC"); }
    void Slide(double value) const { Get<CWSlide>(*screen, "CWSlide1").Value(value); }
};

}  // namespace

TEST_F(CalcCycle, ReadsTheWordsAsItOpens) {
    OpenRun("CalcCycle");
    EXPECT_EQ(Disabled(), (Names{"mnuRead", "mnuCalcCycle", "mnuCalcCycleDefault"}));
    EXPECT_EQ(MousePointer(), Pointer::Hourglass);
    EXPECT_EQ(Interval(), "0.0000");
    ASSERT_TRUE(AwaitEnd());
    EXPECT_EQ(Heard(), (std::vector<Bytes>{ReadRequest(238), ReadRequest(240), ReadRequest(242),
                                           ReadRequest(244), ReadRequest(246)}));
    EXPECT_EQ(Words(), (std::vector<double>{4, 10, 125, 5}));
    EXPECT_EQ(Interval(), "2.5000");  // 4 x 10 x 125 x 5 x 100 ns
    ExpectIdle();
    sensor.SetWord(238, 2);
    Run("mnuRead");
    EXPECT_TRUE(IsOn("opt4")) << "there is no option for 2";
}

TEST_F(CalcCycle, OnlyAGoodTableLetsTheSliderPick) {
    struct Case {
        std::string contents;
        const char* message;
    };
    for (const auto& [contents, message] :
         std::vector<Case>{{Table(good, 231), ""},
                           {"", "Time Tick Table not found in Logs directory!"},
                           {Table("another\n", 231), "Time Tick Table not valid!"},
                           {Table(good, 230), "Time Tick Table loading failed!"}}) {
        SCOPED_TRACE(message);
        WriteTable(contents);
        if (contents.empty()) QFile::remove(TablePath());
        const BoxAnswerer box({}, goOn);
        OpenRead("CalcCycle");
        const bool loaded = *message == '\0';
        EXPECT_EQ(box.Texts(), loaded ? Strings{} : Strings{message});
        EXPECT_EQ(Disabled(), loaded ? Names{} : Names{"fraCalc1"});
        Get<CWNumEdit>(*screen, "NumEdit246").Value(1);
        EXPECT_EQ(Interval(), ".5000") << "the fields still work";
        Click(*screen, "mnuReturn");
    }
}

TEST_F(CalcCycle, TheSliderPicksARowByItsText) {
    OpenRead("CalcCycle");
    EXPECT_EQ(Text(*screen, "lblSlider"), "2.00");
    Slide(2.4);
    EXPECT_EQ(Text(*screen, "lblSlider"), "2.40");
    EXPECT_EQ(Words(), (std::vector<double>{1, 10, 250, 8}));
    Slide(2.3);
    EXPECT_EQ(Interval(), "Calc errored!") << "no such row";
    EXPECT_EQ(Words(), (std::vector<double>{1, 10, 250, 8}));
    Get<OptionButton>(*screen, "opt16").click();
    EXPECT_EQ(Interval(), "32.0000");
}

TEST_F(CalcCycle, TheDefaultIsSetAndWritten) {
    const BoxAnswerer boxes({}, goOn);
    OpenRead("CalcCycle");
    sensor.ClearRecord();
    Click(*screen, "mnuCalcCycleDefault");
    EXPECT_TRUE(screen->Menu("mnuCalcCycle").Checked());
    EXPECT_EQ(Disabled(), Names{"mnuCalcCycleDefault"});
    ASSERT_TRUE(WaitFor([&] { return boxes.Count() == 1; }));
    EXPECT_EQ(boxes.Texts(), Strings{"Set Calc Cycle succeeded!"});
    ExpectIdle();
    EXPECT_EQ(Interval(), "6.5536");
    EXPECT_EQ(Heard(), (std::vector<Bytes>{{0x29, 0x71, 0x00, 0xEE, 0x00, 0x10, 0xAA},
                                           {0x29, 0x71, 0x00, 0xF0, 0x00, 0x10, 0xAA},
                                           {0x29, 0x71, 0x00, 0xF2, 0x01, 0x00, 0xAA},
                                           {0x29, 0x71, 0x00, 0xF6, 0x00, 0x01, 0xAA}}));
}

TEST_F(CalcCycle, OnlyTheFirstAndLastReplyMustPass) {
    using Case = std::pair<std::vector<Bytes>, const char*>;
    const char* succeeded = "Set Calc Cycle succeeded!";
    const char* failed = "Set Calc Cycle failed checksum!";
    OpenRead("CalcCycle");
    for (const auto& [replies, message] :
         {Case{{badSum, written, written, written}, failed},
          Case{{written, badSum, written, written}, succeeded},
          Case{{written, written, badSum, written}, succeeded},
          Case{{written, written, written, badSum}, failed},
          Case{{written, written, otherHeader, written}, malformed},
          Case{{written, written, written, oneByteMore}, malformed}})
        EXPECT_EQ(Messages("mnuCalcCycle", replies), Strings{message});
}

TEST_F(CalcCycle, ASecondClickEndsTheWaitAndAPortThatIsGoneIsReported) {
    const BoxAnswerer boxes({}, goOn);
    OpenRead("CalcCycle");
    sensor.SetSilent(true);
    Click(*screen, "mnuCalcCycle");
    EXPECT_TRUE(screen->Menu("mnuCalcCycle").Checked());
    Click(*screen, "mnuCalcCycle");
    ExpectIdle();
    EXPECT_EQ(boxes.Count(), 0U);
    AppState.CommPort = 99;
    Click(*screen, "mnuCalcCycle");
    ASSERT_EQ(boxes.Count(), 2U);
    EXPECT_EQ(boxes.Error(1), "8018 mnuCalcCycle CalcCycle");
    EXPECT_TRUE(screen->Menu("mnuCalcCycle").Checked()) << "the entry stays checked";
}

}  // namespace orbkl4::test
