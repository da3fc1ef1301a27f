#include "memory/screens/map_fixture.h"
#include "platform/windows/boxes.h"
#include "support/frames.h"
#include "support/wait.h"

#include <gtest/gtest.h>

namespace orbkl4::test {

namespace {

using Numbers = std::vector<double>;

/// The screen of the gains, opened on a sensor with gains of 1, 2 and 300; its first read is under
/// way.
class GainsTest : public RunTest {
  protected:
    GainsTest() : RunTest("Gains", {"mnuRead", "mnuWrite"}, {"fraGain"}) {
        sensor.SetWord(124, 1);
        sensor.SetWord(126, 2);
        sensor.SetWord(128, 300);
        OpenScreen();
        new TickOnReply(Get<Timer>(*screen, "TimerWrite"), Port());
    }

    void AwaitEnd() {
        ASSERT_TRUE(WaitFor([&] { return !Running(); }));
        ExpectRest("0");
    }
    void ExpectRun(const char* caption) {
        ExpectControls(false);
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
};

}  // namespace

TEST_F(GainsTest, OpeningReadsTheGainsAndAWriteSendsThemAsUnsignedWords) {
    ExpectRun("Reading");
    AwaitEnd();
    EXPECT_EQ(Shown(), (Numbers{1, 2, 300}));
    Set({65535, 0, 256});
    Click(*screen, "mnuWrite");
    ExpectRun("Writing");
    AwaitEnd();
    EXPECT_EQ(Heard(), (std::vector<Bytes>{{0x25}, {0x24, 0xFF, 0xFF, 0x00, 0x00, 0x01, 0x00}}));
    EXPECT_EQ(Shown(), (Numbers{65535, 0, 256}));
    EXPECT_EQ(hand.Texts(), (std::vector<std::string>{readDone, writeDone}));
    Click(*screen, "mnuRead");
    AwaitEnd();
    EXPECT_EQ(Shown(), (Numbers{65535, 0, 256})) << "as the sensor has them now";
}

TEST_F(GainsTest, ARetryAsksAgainAndACancelLeavesZeros) {
    AwaitEnd();
    sensor.ClearRecord();
    sensor.ReplyOnceTo(0x25, Frame(0x24, {1, 2, 3, 4}));
    sensor.ReplyOnceTo(0x25, Frame(0x25, {1, 2, 3}));
    sensor.ReplyOnceTo(0x25, {0x25, 0, 1, 0, 2, 0, 3, 0, 4, 0, 0});
    Click(*screen, "mnuRead");
    EXPECT_EQ(Shown(), (Numbers{0, 0, 0}));
    AwaitEnd();
    const std::vector<std::string> expected{
        readDone, std::string("Header is not 0x25!") + retryOrCancel,
        std::string("Packet length is <> 11 bytes!") + retryOrCancel,
        std::string("Checksum failed!") + retryOrCancel, readDone};
    EXPECT_EQ(hand.Texts(), expected);
    EXPECT_EQ(Heard(), (std::vector<Bytes>{{0x25}, {0x25}, {0x25}, {0x25}}));
    EXPECT_EQ(Shown(), (Numbers{1, 2, 300}));

    hand.Otherwise(QMessageBox::Cancel);
    sensor.ReplyOnceTo(0x25, {0x25});
    Click(*screen, "mnuRead");
    AwaitEnd();
    EXPECT_EQ(hand.Texts().back(), readDone) << "a cancelled read isn't told";
    EXPECT_EQ(Shown(), (Numbers{0, 0, 0}));
    Click(*screen, "mnuWrite");
    AwaitEnd();
    EXPECT_EQ(Heard().back(), (Bytes{0x24, 0, 0, 0, 0, 0, 0}));
}

TEST_F(GainsTest, ARetriedWriteSendsTheFieldsAsTheyStandThen) {
    AwaitEnd();
    sensor.ClearRecord();
    sensor.ReplyOnceTo(0x24, {0x25, 0, 0, 0, 0x25});
    sensor.ReplyOnceTo(0x24, {0x24, 0, 0, 0, 0x24, 0});
    sensor.ReplyOnceTo(0x24, {0x24, 0, 0, 0, 0x25});
    hand.BeforeAnswer([&](QMessageBox& box) {
        if (box.text().startsWith(QStringLiteral("Header"))) Set({7, 8, 9});
    });
    Click(*screen, "mnuWrite");
    AwaitEnd();
    const std::vector<std::string> expected{
        readDone, std::string("Header is not 0x24!") + retryOrCancel,
        std::string("Packet length is <> 5 bytes!") + retryOrCancel,
        std::string("Checksum failed!") + retryOrCancel, writeDone};
    EXPECT_EQ(hand.Texts(), expected);
    const Bytes changed{0x24, 0, 7, 0, 8, 0, 9};
    EXPECT_EQ(Heard(),
              (std::vector<Bytes>{{0x24, 0, 1, 0, 2, 1, 0x2C}, changed, changed, changed}));
}

TEST_F(GainsTest, SilenceIsAnErrorOfTheTickAndNothingIsSentAgain) {
    AwaitEnd();
    sensor.ClearRecord();
    sensor.ReplyOnceTo(0x24, {});
    hand.BeforeAnswer([&](QMessageBox& box) {
        const bool isError = box.text().contains(QStringLiteral("Number: 9"));
        if (isError) sensor.SendUnasked(Frame(0x24, {0}));
    });
    Click(*screen, "mnuWrite");
    AwaitEnd();
    ASSERT_EQ(hand.Count(), 3U);
    EXPECT_EQ(hand.Error(1), "9 TimerWrite_Timer Gains");
    EXPECT_EQ(hand.Texts()[2], writeDone);
    EXPECT_EQ(Heard().size(), 1U);
}

}  // namespace orbkl4::test
