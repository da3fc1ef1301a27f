#include "memory/screens/map_fixture.h"
#include "platform/boxes.h"
#include "platform/screen_registry.h"
#include "support/frames.h"
#include "support/wait.h"

#include <gtest/gtest.h>

namespace orbkl4::test {

namespace {

using Numbers = std::vector<double>;

/// The screen of the gains, opened on a sensor with gains of 1, 2 and 300; its first read is under
/// way.
class GainsTest : public ScreenTest {
  protected:
    GainsTest() {
        sensor.SetWord(124, 1);
        sensor.SetWord(126, 2);
        sensor.SetWord(128, 300);
        OpenGains();
    }

    void OpenGains() {
        gains = &Open("Gains");
        for (const char* timer : {"TimerRead", "TimerWrite"})
            new Hastener(Get<Timer>(*gains, timer), Get<MSComm>(*gains, "MSComm1"));
    }

    bool Running() const { return !gains->Menu("mnuRead").Enabled(); }
    void AwaitEnd() {
        ASSERT_TRUE(WaitFor([&] { return !Running(); }));
        EXPECT_TRUE(gains->Menu("mnuWrite").Enabled());
        EXPECT_TRUE(Get<QWidget>(*gains, "fraGain").isEnabled());
        EXPECT_FALSE(Get<MSComm>(*gains, "MSComm1").PortOpen());
        EXPECT_EQ(Property(*gains, "fraPB", "title"), "Progress");
        EXPECT_EQ(Property(*gains, "PBar", "value"), "0");
        EXPECT_EQ(MousePointer(), Pointer::Default);
    }
    void ExpectRun(const char* caption) {
        EXPECT_TRUE(Running());
        EXPECT_FALSE(gains->Menu("mnuWrite").Enabled());
        EXPECT_TRUE(gains->Menu("mnuReturn").Enabled());
        EXPECT_FALSE(Get<QWidget>(*gains, "fraGain").isEnabled());
        EXPECT_EQ(Property(*gains, "fraPB", "title"), caption);
        EXPECT_EQ(Property(*gains, "PBar", "value"), "1");
        EXPECT_EQ(MousePointer(), Pointer::Hourglass);
    }

    CWNumEdit& Field(const char* name) const { return Get<CWNumEdit>(*gains, name); }
    Numbers Shown() const {
        return {Field("NumEdit124").Value(), Field("NumEdit126").Value(),
                Field("NumEdit128").Value()};
    }
    void Set(const Numbers& numbers) {
        Field("NumEdit124").Value(numbers[0]);
        Field("NumEdit126").Value(numbers[1]);
        Field("NumEdit128").Value(numbers[2]);
    }

    Screen* gains = nullptr;
    BoxHand hand{{}, QMessageBox::Retry};
};

}  // namespace

TEST_F(GainsTest, OpeningReadsTheGains) {
    ExpectRun("Reading");
    AwaitEnd();
    EXPECT_EQ(Heard(), std::vector<Bytes>{{0x25}});
    EXPECT_EQ(Shown(), (Numbers{1, 2, 300}));
    EXPECT_EQ(hand.Texts(), std::vector<std::string>{readDone});
}

TEST_F(GainsTest, WritesTheGainsAsUnsignedWords) {
    AwaitEnd();
    sensor.ClearRecord();
    Set({65535, 0, 256});
    Click(*gains, "mnuWrite");
    ExpectRun("Writing");
    AwaitEnd();
    EXPECT_EQ(Heard(), (std::vector<Bytes>{{0x24, 0xFF, 0xFF, 0x00, 0x00, 0x01, 0x00}}));
    EXPECT_EQ(sensor.Word(124), 65535);
    EXPECT_EQ(sensor.Word(126), 0);
    EXPECT_EQ(sensor.Word(128), 256);
    EXPECT_EQ(Shown(), (Numbers{65535, 0, 256}));
    EXPECT_EQ(hand.Texts().back(), writeDone);
    Click(*gains, "mnuRead");
    AwaitEnd();
    EXPECT_EQ(Shown(), (Numbers{65535, 0, 256}));
}

TEST_F(GainsTest, ARetryAsksAgainAndACancelLeavesZeros) {
    AwaitEnd();
    sensor.ClearRecord();
    sensor.ReplyOnceTo(0x25, Frame(0x24, {1, 2, 3, 4}));
    sensor.ReplyOnceTo(0x25, Frame(0x25, {1, 2, 3}));
    sensor.ReplyOnceTo(0x25, {0x25, 0, 1, 0, 2, 0, 3, 0, 4, 0, 0});
    Click(*gains, "mnuRead");
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
    Click(*gains, "mnuRead");
    AwaitEnd();
    EXPECT_EQ(hand.Texts().back(), readDone) << "a cancelled read isn't told";
    EXPECT_EQ(Shown(), (Numbers{0, 0, 0}));
    Click(*gains, "mnuWrite");
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
    Click(*gains, "mnuWrite");
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
    struct Case {
        const char* entry;
        const char* source;
        std::uint8_t command;
        Bytes lateReply;
    };
    for (const Case& row : {Case{"mnuRead", "TimerRead_Timer", 0x25, Frame(0x25, {4, 5, 6, 0})},
                            Case{"mnuWrite", "TimerWrite_Timer", 0x24, Frame(0x24, {0})}}) {
        const std::size_t boxes = hand.Count();
        sensor.ReplyOnceTo(row.command, {});
        hand.BeforeAnswer([&](QMessageBox& box) {
            const bool isError = box.text().contains(QStringLiteral("Number: 9"));
            if (isError) sensor.SendUnasked(row.lateReply);
        });
        Click(*gains, row.entry);
        AwaitEnd();
        ASSERT_EQ(hand.Count(), boxes + 2);
        EXPECT_NE(hand.Texts()[boxes].find(std::string("Number: 9\r\nSource: ") + row.source +
                                           "\r\nScreen: Gains\r\n"),
                  std::string::npos)
            << hand.Texts()[boxes];
        EXPECT_EQ(Shown(), (Numbers{4, 5, 6}));
    }
    EXPECT_EQ(Heard().size(), 2U);
}

TEST_F(GainsTest, ReturnInMidRunClosesThePort) {
    sensor.SetSilent(true);
    Get<Timer>(*gains, "TimerRead").Interval(1000);
    const MSComm& port = Get<MSComm>(*gains, "MSComm1");
    EXPECT_TRUE(port.PortOpen());
    Click(*gains, "mnuReturn");
    EXPECT_FALSE(port.PortOpen());
    EXPECT_EQ(ActiveScreenName(), "Main");
    LetPass(50);
    EXPECT_EQ(FindScreen("Gains"), nullptr);
    sensor.SetSilent(false);
    OpenGains();
    AwaitEnd();
    EXPECT_EQ(Shown(), (Numbers{1, 2, 300}));
    EXPECT_EQ(hand.Texts(), std::vector<std::string>{readDone});
}

}  // namespace orbkl4::test
