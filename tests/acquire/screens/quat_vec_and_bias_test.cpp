#include "acquire/screens/view_fixture.h"
#include "platform/windows/screen_registry.h"
#include "support/box_answerer.h"

#include <QPointer>
#include <QRegularExpression>
#include <QResizeEvent>

#include <chrono>
#include <functional>
#include <random>

namespace orbkl4::test {

namespace {

/// The least that a wait of 100 counted milliseconds takes.
constexpr std::chrono::milliseconds oneWait(99);

Bytes QuatVecFrame(std::uint8_t command, unsigned ticks) {
    return Frame(command, {8192, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, ticks});
}

/// Notes the widths that a window takes.
class WidthWatch : public QObject {
  public:
    explicit WidthWatch(QWidget& window) { window.installEventFilter(this); }

    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() == QEvent::Resize) {
            const auto* resize = static_cast<QResizeEvent*>(event);
            steps.push_back(resize->size().width() - resize->oldSize().width());
            if (steps.size() == 1 && onFirst) onFirst();
        }
        return false;
    }

    std::vector<int> steps;
    std::function<void()> onFirst;
};

class QuatVec : public ViewTest {
  protected:
    Screen& screen = Open("QuatVec");
    WidthWatch watch{frame};
    const int step = qRound(50.0 / 1440 * frame.logicalDpiX());  ///< 50 twips in pixels
};

using BiasCapture = ViewTest;

}  // namespace

TEST_F(QuatVec, AnOverlongReplyNudgesTheFrameAndAnotherWrongOneDoesNot) {
    const Bytes two = Joined(QuatVecFrame(0x12, 1), QuatVecFrame(0x12, 2));
    Script(0x12, {QuatVecFrame(0x0C, 1), two, QuatVecFrame(0x12, 3)});
    const auto start = std::chrono::steady_clock::now();
    Click(screen, "mnuSampleInstant");
    ASSERT_TRUE(AwaitRequests(4));
    EXPECT_GT(std::chrono::steady_clock::now() - start, oneWait);
    EXPECT_EQ(watch.steps, (std::vector<int>{step, -step})) << "once, for the overlong one";
    EXPECT_EQ(Text(screen, "txtTimerTicksI"), "3") << "the next reply comes into an empty buffer";
    EXPECT_TRUE(Lit(screen, "LEDI"));
}

TEST_F(QuatVec, WhatComesDuringTheNudgeIsDrainedBeforeTheNextRequest) {
    Script(0x0C, {Bytes(62, 0x0C), QuatVecFrame(0x0C, 9)});
    Click(screen, "mnuSampleGyro");
    watch.onFirst = [this] { sensor.SendUnasked(Bytes(10, 0x0C)); };
    ASSERT_TRUE(AwaitRequests(3));
    EXPECT_EQ(Text(screen, "txtTimerTicks"), "9") << "ten bytes left over would have spoilt it";
    EXPECT_EQ(watch.steps, (std::vector<int>{step, -step}));
}

TEST_F(QuatVec, AnErrorNudgesTheFrameBeforeItsBox) {
    Script(0x0C, {QuatVecFrame(0x0C, 1)});
    AppState.CounterFrequency = 0;
    std::vector<int> stepsAtBox;
    BoxAnswerer boxes({}, QMessageBox::Retry);
    boxes.BeforeAnswer([&](QMessageBox&) { stepsAtBox = watch.steps; });
    Click(screen, "mnuSampleGyro");
    ASSERT_TRUE(WaitFor([&] { return boxes.Count() == 1; }));
    EXPECT_EQ(stepsAtBox, (std::vector<int>{step, -step}));
    EXPECT_EQ(boxes.Error(0), "11 MSComm1_OnComm QuatVec");
}

TEST_F(BiasCapture, AnIdleViewSendsTheCommandAndLeavesThePortClosed) {
    const Screen& screen = Open("AnglesAccRate");
    Click(screen, "mnuCaptureBias");
    EXPECT_FALSE(Get<MSComm>(screen, "MSComm1").PortOpen());
    EXPECT_EQ(Heard(1), std::vector<Bytes>{{0x06}});
}

TEST_F(BiasCapture, GoesInBetweenTwoRequestsOfTheRunningChannel) {
    const auto reply = [](unsigned ticks) { return Frame(0x04, {0, 0, 0, 0, ticks}); };
    const Screen& screen = Open("Quaternions");
    Script(0x04, {reply(1), reply(2), reply(3)});
    sensor.ReplyTo(0x06, Bytes(7, 0x06));
    Click(screen, "mnuSampleInstant");
    ASSERT_TRUE(sensor.WaitForRequests(1, std::chrono::seconds(2)));  // with no event handled
    const auto start = std::chrono::steady_clock::now();
    Click(screen, "mnuCaptureBias");  // the reply to the first request is on its way
    EXPECT_GT(std::chrono::steady_clock::now() - start, 2 * oneWait);
    EXPECT_EQ(Get<MSComm>(screen, "MSComm2").RThreshold(), 13);
    ASSERT_TRUE(AwaitRequests(5));
    EXPECT_EQ(sensor.Received(), (Bytes{0x04, 0x06, 0x04, 0x04, 0x04}));
    EXPECT_EQ(Text(screen, "txtTimerTicksI"), "3") << "neither the stale reply nor the other's";
    EXPECT_FALSE(Get<QWidget>(screen, "lblWarning").isVisible());
}

TEST_F(BiasCapture, AnyOrderOfStartsStopsAndReturnsOnASickLineLeavesNothingBehind) {
    orbkl4sim::FaultRates faults;
    faults.drop = faults.corrupt = faults.truncate = faults.stray = 0.1;
    sensor.SetFaults(faults);
    std::mt19937 random(7);
    const auto below = [&](std::size_t limit) { return random() % limit; };
    const std::vector<const char*> names{"SensorBits", "Vectors",       "Quaternions", "Angles",
                                         "Matrices",   "AnglesAccRate", "QuatVec"};
    const BoxAnswerer boxes({}, QMessageBox::Retry);
    for (int visit = 0; visit < 50; ++visit) {
        const QPointer<Screen> screen(&Open(names[below(names.size())]));
        const auto entries =
            screen->findChildren<MenuEntry*>(QRegularExpression(QStringLiteral("^mnuSample")));
        while (below(4) > 0) {
            entries[static_cast<qsizetype>(below(2)) % entries.size()]->trigger();
            LetPass(static_cast<int>(below(8)));
        }
        Click(*screen, "mnuReturn");
        ASSERT_EQ(ActiveScreenName(), "Main");
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        ASSERT_TRUE(screen.isNull());
        const auto quiet = [this] {
            sensor.ClearRecord();
            LetPass(2);
            return sensor.Requests().empty();
        };
        ASSERT_TRUE(WaitFor(quiet)) << "nothing asks any more once the last request is heard";
    }
    EXPECT_EQ(boxes.Count(), 0U);
}

}  // namespace orbkl4::test
