#include "acquire/screens/view_fixture.h"
#include "platform/controls/cw_graph.h"
#include "platform/windows/screen_registry.h"
#include "support/box_answerer.h"

#include <QCheckBox>
#include <qcustomplot.h>

namespace orbkl4::test {

namespace {

const std::vector<std::string> fields = Split(
    "txtHeader txtRawMag1 txtRawMag2 txtRawMag3 txtRawAcc1 txtRawAcc2 txtRawAcc3 txtRawAngRate1 "
    "txtRawAngRate2 txtRawAngRate3 txtTimerTicks txtCS");
const Bytes rawReply = Frame(0x01, {1, 32767, 32768, 65535, 0, 6, 7, 8, 9, 500});
// 1 + 1 + 32767 + 32768 + 65535 + 6 + 7 + 8 + 9 + 500 = 131602 = 2 x 65536 + 530
const std::vector<std::string> texts = Split("1 1 32767 32768 65535 0 6 7 8 9 500 530");

class SelfTest : public ViewTest {
  protected:
    /// Samples through `replies` and on to the request after them.
    void Sample(const std::vector<Bytes>& replies) {
        Script(0x01, replies);
        Click(screen, "mnuSample");
        ASSERT_TRUE(AwaitRequests(replies.size() + 1));
    }

    QCheckBox& Check(const char* name) const { return Get<QCheckBox>(screen, name); }
    bool ShiftEnabled() const { return Get<QWidget>(screen, "fraShift").isEnabled(); }

    Screen& screen = Open("SelfTest");
    CWGraph& graph = Get<CWGraph>(screen, "CWGraph1");
    const QCustomPlot& plot = *graph.findChild<QCustomPlot*>();
    BoxAnswerer hand{{}, QMessageBox::Retry};
};

}  // namespace

TEST_F(SelfTest, ShowsAndDrawsEachGoodReplyUntilTheNextStart) {
    EXPECT_FALSE(ShiftEnabled());
    EXPECT_EQ(graph.PointCount(), 0);
    EXPECT_EQ(plot.xAxis->label(), "Reads");
    EXPECT_EQ(plot.yAxis->label(), "Bitsness");
    EXPECT_EQ(plot.yAxis->range().upper, 65535);
    Sample({rawReply, rawReply});
    EXPECT_EQ(Texts(screen, fields), texts);
    EXPECT_TRUE(Lit(screen, "LED"));
    EXPECT_TRUE(ShiftEnabled());
    EXPECT_EQ(graph.PointCount(), 2);
    const auto lastDrawn = [this](int number) {
        const auto points = plot.graph(number)->data();
        return points->isEmpty() ? -1 : (points->constEnd() - 1)->value;
    };
    ASSERT_TRUE(WaitFor([&] { return lastDrawn(8) == 9; }));
    EXPECT_EQ(lastDrawn(0), 1);
    EXPECT_EQ(lastDrawn(3), 65535);

    Click(screen, "mnuSample");
    EXPECT_FALSE(Lit(screen, "LED"));
    EXPECT_FALSE(Get<MSComm>(screen, "MSComm1").PortOpen());
    emit Get<MSComm>(screen, "MSComm1").OnComm();
    EXPECT_EQ(hand.Count(), 0U) << "a reply that finds its port closed is passed over";
    EXPECT_EQ(Texts(screen, fields), texts);
    EXPECT_EQ(graph.PointCount(), 2);
    Click(screen, "mnuSample");
    EXPECT_EQ(Texts(screen, fields), std::vector<std::string>(12));
    EXPECT_EQ(graph.PointCount(), 0);
    ASSERT_TRUE(WaitFor([this] { return plot.xAxis->range().lower == 0; }));
    EXPECT_EQ(plot.xAxis->range().upper, 200);
}

TEST_F(SelfTest, ABadReplyDrawsNoPointAndOnlyABadSumDimsTheLamp) {
    Bytes badSum = rawReply;
    badSum.back() ^= 1;
    Bytes oneByteMore = rawReply;
    oneByteMore.push_back(0);
    Sample({rawReply, oneByteMore});
    EXPECT_TRUE(Lit(screen, "LED"));
    EXPECT_EQ(graph.PointCount(), 1);
    Click(screen, "mnuSample");
    Sample({rawReply, badSum});
    EXPECT_FALSE(Lit(screen, "LED"));
    EXPECT_EQ(graph.PointCount(), 1);
    EXPECT_EQ(Texts(screen, fields), texts);
    EXPECT_EQ(hand.Count(), 0U);
}

TEST_F(SelfTest, SendsTheSumOfTheTickedBitsInBetween) {
    Check("chk1").click();
    EXPECT_FALSE(Check("chk1").isChecked()) << "nothing can be shifted while nothing is sampled";
    sensor.SetSilent(true);
    Click(screen, "mnuSample");
    for (const char* check : {"chk1", "chk2", "chk1", "chk2", "chk3", "chk0"}) Check(check).click();
    ASSERT_TRUE(WaitFor([this] { return Heard().size() >= 7; }));
    EXPECT_EQ(Heard(),
              (std::vector<Bytes>{
                  {0x01}, {0x27, 2}, {0x27, 6}, {0x27, 4}, {0x27, 0}, {0x27, 8}, {0x27, 9}}));
    EXPECT_EQ(Text(screen, "lblSelfTestByte"), "9");
    Click(screen, "mnuSample");
    EXPECT_FALSE(ShiftEnabled());
    Check("chk1").setChecked(true);
    Check("chk1").setChecked(false);
    EXPECT_EQ(hand.Count(), 0U) << "a closed port isn't reported";
    sensor.ClearRecord();
    Click(screen, "mnuSample");
    ASSERT_TRUE(WaitFor([this] { return !Heard().empty(); }));
    EXPECT_TRUE(Check("chk0").isChecked());
    EXPECT_EQ(Text(screen, "lblSelfTestByte"), "9");
    Click(screen, "mnuReturn");
    EXPECT_EQ(Heard(), std::vector<Bytes>{{0x01}}) << "neither start nor return sends the byte";
}

TEST_F(SelfTest, AShiftShowsInTheRawWords) {
    Click(screen, "mnuSample");
    ASSERT_TRUE(WaitFor([this] { return graph.PointCount() > 0; }));
    const double before = SampleState.RawMag1;
    Check("chk2").click();
    EXPECT_TRUE(WaitFor([&] { return SampleState.RawMag1 == before + 5000; }));
    Check("chk3").click();
    EXPECT_TRUE(WaitFor([&] { return SampleState.RawMag1 == before - 5000; }));
}

TEST_F(SelfTest, ASilentSensorIsAskedAfresh) {
    sensor.SetSilent(true);
    Click(screen, "mnuSample");
    Get<Timer>(screen, "TimerSampling").Interval(200);
    auto& warning = Get<QWidget>(screen, "lblWarning");
    ASSERT_TRUE(WaitFor([&] { return warning.isVisible() && Heard().size() >= 3; }));
    sensor.SetSilent(false);
    ASSERT_TRUE(WaitFor([&] { return Lit(screen, "LED") && !warning.isVisible(); }));
}

}  // namespace orbkl4::test
