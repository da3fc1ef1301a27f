#include "link/screens/runs_fixture.h"
#include "platform/controls/cw_num_edit.h"

namespace orbkl4::test {

namespace {

using Numbers = std::vector<double>;

/// The screen of the gains during its first read, with a sensor whose gains are 1, 2 and 300.
class GainsTest : public RunTest {
  protected:
    GainsTest() {
        sensor.SetWord(124, 1);
        sensor.SetWord(126, 2);
        sensor.SetWord(128, 300);
        OpenRun("Gains");
        new TickOnReply(Get<Timer>(*screen, "TimerWrite"), Port());
    }

    void AwaitRest() const {
        ASSERT_TRUE(AwaitEnd());
        ExpectRest("0");
    }
    void ExpectRun(const char* caption) {
        EXPECT_EQ(Disabled(), (Names{"mnuRead", "mnuWrite", "fraGain"}));
        EXPECT_EQ(Property(*screen, "fraPB", "title"), caption);
        EXPECT_EQ(Property(*screen, "PBar", "value"), "1");
        EXPECT_EQ(MousePointer(), Pointer::Hourglass);
    }

    CWNumEdit& Field(const char* name) const { return Get<CWNumEdit>(*screen, name); }
    Numbers Shown() const {
        return {Field("NumEdit124").Value(), Field("NumEdit126").Value(),
                Field("NumEdit128").Value()};
    }
    void Set(const Numbers& numbers) {
        Field("NumEdit124").Value(numbers[0]);
        Field("NumEdit126").Value(numbers[1]);
        Field("NumEdit128").Value(numbers[2]);
    }

    BoxAnswerer boxes{{}, goOn};
};

}  // namespace

TEST_F(GainsTest, OpeningReadsTheGainsAndAWriteSendsThemAsUnsignedWords) {
    ExpectRun("Reading");
    AwaitRest();
    EXPECT_EQ(Shown(), (Numbers{1, 2, 300}));
    Set({65535, 0, 256});
    Click(*screen, "mnuWrite");
    ExpectRun("Writing");
    AwaitRest();
    EXPECT_EQ(Heard(), (std::vector<Bytes>{{0x25}, {0x24, 0xFF, 0xFF, 0x00, 0x00, 0x01, 0x00}}));
    EXPECT_EQ(Shown(), (Numbers{65535, 0, 256}));
    EXPECT_EQ(boxes.Texts(), (Strings{readDone, writeDone}));
    Click(*screen, "mnuRead");
    AwaitRest();
    EXPECT_EQ(Shown(), (Numbers{65535, 0, 256})) << "as read back";
}

TEST_F(GainsTest, ARetryAsksAgainAndACancelLeavesZeros) {
    AwaitRest();
    sensor.ClearRecord();
    sensor.ReplyOnceTo(0x25, Frame(0x24, {1, 2, 3, 4}));
    Click(*screen, "mnuRead");
    EXPECT_EQ(Shown(), (Numbers{0, 0, 0}));
    AwaitRest();
    EXPECT_EQ(boxes.Texts()[1], std::string("Header is not 0x25!") + retryOrCancel);
    EXPECT_EQ(Heard(), (std::vector<Bytes>{{0x25}, {0x25}}));
    EXPECT_EQ(Shown(), (Numbers{1, 2, 300}));

    boxes.Otherwise(QMessageBox::Cancel);
    sensor.ReplyOnceTo(0x25, {0x25});
    Click(*screen, "mnuRead");
    AwaitRest();
    EXPECT_EQ(boxes.Texts().back(), readDone) << "a cancelled read ends like any other";
    EXPECT_EQ(Shown(), (Numbers{0, 0, 0}));
}

TEST_F(GainsTest, ARetriedWriteSendsTheFieldsAsTheyAreThen) {
    AwaitRest();
    sensor.ClearRecord();
    sensor.ReplyOnceTo(0x24, {});
    boxes.BeforeAnswer([&](QMessageBox& box) {
        if (box.text().contains(QStringLiteral("Number: 9")))
            sensor.SendUnasked({0x25, 0, 0, 0, 0x25});  // the late reply to the only request
        if (box.text().startsWith(QStringLiteral("Header"))) Set({7, 8, 9});
    });
    Click(*screen, "mnuWrite");
    AwaitRest();
    ASSERT_EQ(boxes.Count(), 4U);
    EXPECT_EQ(boxes.Error(1), "9 TimerWrite_Timer Gains");
    EXPECT_EQ(boxes.Texts()[2], std::string("Header is not 0x24!") + retryOrCancel);
    EXPECT_EQ(boxes.Texts()[3], writeDone);
    EXPECT_EQ(Heard(), (std::vector<Bytes>{{0x24, 0, 1, 0, 2, 1, 0x2C}, {0x24, 0, 7, 0, 8, 0, 9}}));
}

}  // namespace orbkl4::test
