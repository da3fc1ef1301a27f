#include "platform/events/do_events.h"
#include "platform/events/mscomm.h"
#include "platform/events/timer.h"
#include "platform/windows/boxes.h"
#include "platform/windows/mdi_frame.h"
#include "platform/windows/menu_entry.h"
#include "platform/windows/screen.h"
#include "platform/windows/screen_registry.h"
#include "support/box_answerer.h"
#include "support/pty_master.h"
#include "support/temporary_folders.h"
#include "support/wait.h"

#include <QElapsedTimer>
#include <QMenu>
#include <QPointer>
#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <utility>

namespace orbkl4::test {

namespace {

/// A source whose event is due once.
class Source : public EventSource {
  public:
    explicit Source(std::function<void()> handler) : handler_(std::move(handler)) {}

    bool EventDue() const override { return due_; }
    void DeliverEvent() override {
        due_ = false;
        handler_();
    }

  private:
    std::function<void()> handler_;
    bool due_ = true;
};

/// Keeps the kinds of the events that it gets.
class Recorder : public QObject {
  public:
    QList<QEvent::Type> seen;

    bool event(QEvent* event) override {
        seen += event->type();
        return true;
    }
};

/// A port on a line whose far end the test holds, and a timer; their events are counted.
class EventContract : public testing::Test {
  protected:
    EventContract() {
        folders.LinkPort(1, line.Path());
        port.CommPort(1);
        port.Settings("38400,n,8,1");
        QObject::connect(&port, &MSComm::OnComm, &port, [this] { ++events; });
        QObject::connect(&timer, &Timer::Tick, &timer, [this] { ++ticks; });
    }

    void Open(std::int16_t threshold) {
        port.RThreshold(threshold);
        port.PortOpen(true);
    }

    TemporaryFolders folders;
    PtyMaster line;
    MSComm port{nullptr, "MSComm1"};
    Timer timer{nullptr, "TimerTest", 10};
    int events = 0;
    int ticks = 0;
};

const Bytes fiveBytes{1, 2, 3, 4, 5};

}  // namespace

TEST_F(EventContract, NothingIsDeliveredWhileABoxIsUp) {
    Open(5);
    timer.Enabled(true);
    BoxAnswerer boxes;
    boxes.Hesitate(150);
    boxes.BeforeAnswer([&](QMessageBox&) { EXPECT_EQ(ticks + events, 0); });
    line.Send(fiveBytes);
    ShowMessage("Held up");
    EXPECT_TRUE(WaitFor([&] { return ticks > 0 && events == 1; }))
        << "what came due during the box comes after it";
}

TEST_F(EventContract, ATickComesAnIntervalAfterTheLastHandlerAndItsBoxHaveEnded) {
    constexpr int interval = 60;
    constexpr int longer = 100;
    timer.Interval(interval);
    BoxAnswerer boxes;
    boxes.Hesitate(longer);
    QElapsedTimer ended;
    QObject::connect(&timer, &Timer::Tick, &timer, [&] {
        const bool inTime = ticks == 1 || ended.elapsed() >= interval - 1;  // precise to 1 ms
        EXPECT_TRUE(inTime) << "tick " << ticks << " after " << ended.elapsed() << " ms";
        if (ticks == 1) QTest::qSleep(longer);
        if (ticks == 2) ShowMessage("It lasts");
        ended.start();
    });
    timer.Enabled(true);
    EXPECT_TRUE(WaitFor([&] { return ticks == 3; }));
}

TEST_F(EventContract, ASourceThatAnEarlierHandlerDestroysIsLeftOut) {
    int delivered = 0;
    std::optional<Source> later;
    Source earlier([&] {
        later.reset();
        ++delivered;
    });
    later.emplace([&] { ++delivered; });
    { const HandlerScope handler; }  // both are looked at after it
    EXPECT_TRUE(WaitFor([&] { return delivered > 0; }));
    EXPECT_EQ(delivered, 1);
}

TEST_F(EventContract, OnCommIsDecidedAtDelivery) {
    Open(0);
    line.Send(fiveBytes);
    ASSERT_TRUE(WaitFor([&] { return port.InBufferCount() == 5; }));
    LetPass(20);
    EXPECT_EQ(events, 0) << "no threshold, no event";

    // A handler that sets the threshold with enough bytes waiting lets the event come after it.
    {
        const HandlerScope handler;
        port.RThreshold(5);
        EXPECT_EQ(events, 0);
    }
    EXPECT_TRUE(WaitFor([&] { return events > 0; }));
}

TEST_F(EventContract, AfterAnErrorBoxEventsRestASecondAndWhileAMenuIsOpen) {
    Open(5);
    timer.Enabled(true);
    const BoxAnswerer boxes;
    AskErrorRetryCancel("It went wrong");
    QElapsedTimer rest;
    rest.start();
    line.Send(fiveBytes);
    ASSERT_TRUE(WaitFor([&] { return ticks + events > 0; }));
    EXPECT_GT(rest.elapsed(), 900);
    ASSERT_TRUE(WaitFor([&] { return ticks > 0 && events > 0; }));

    ShowErrorMessage("It went wrong again");
    const int before = ticks;
    QMenu menu;
    menu.addAction(QStringLiteral("Return"));
    menu.popup(QPoint(0, 0));
    LetPass(1100);
    EXPECT_EQ(ticks, before) << "the menu is still open";
    menu.close();
    EXPECT_TRUE(WaitFor([&] { return ticks > before; }));
}

TEST_F(EventContract, AMenuEntrysCheckMarkIsTheProgramsAlone) {
    QWidget screen;
    MenuEntry entry(&screen, {"mnuSample", "&Sample"});
    entry.trigger();
    EXPECT_FALSE(entry.isChecked());
    entry.Checked(true);
    entry.trigger();
    EXPECT_TRUE(entry.isChecked()) << "Qt would have taken the mark off";
}

TEST_F(EventContract, UnloadingStopsAScreenAtOnceAndDestroysItLater) {
    RegisterScreen("View", [] { return new Screen("View", "View"); });
    MdiFrame frame("MDIForm1", "Frame");
    PlaceScreensIn(&frame);
    frame.show();
    ShowScreen("View");
    const QPointer<Screen> view = FindScreen("View");
    auto* viewTimer = new Timer(view, "TimerSampling", 5);
    auto* viewPort = new MSComm(view, "MSComm1");
    QObject::connect(viewTimer, &Timer::Tick, view, [this] { ++ticks; });
    viewPort->PortOpen(true);
    viewTimer->Enabled(true);
    {
        const HandlerScope handler;
        view->Unload();
        view->Unload();
        EXPECT_EQ(FindScreen("View"), nullptr);
        EXPECT_FALSE(viewPort->PortOpen());
        LetPass(30);  // a box of the handler would let events run as this does
        EXPECT_FALSE(view.isNull());
    }
    EXPECT_TRUE(WaitFor([&] { return view.isNull(); }));
    EXPECT_EQ(ticks, 0);
    Open(5);  // the line is free again at once
}

TEST(DoEvents, DropsWhatIsDoneWithKeyboardAndMouseMeanwhile) {
    Recorder recorder;
    const QList<QEvent::Type> input{QEvent::KeyPress,
                                    QEvent::KeyRelease,
                                    QEvent::Shortcut,
                                    QEvent::ShortcutOverride,
                                    QEvent::MouseButtonPress,
                                    QEvent::MouseButtonRelease,
                                    QEvent::Wheel,
                                    QEvent::MouseButtonDblClick,
                                    QEvent::ContextMenu,
                                    QEvent::Close};
    const auto post = [&] {
        for (const auto type : input) QCoreApplication::postEvent(&recorder, new QEvent(type));
    };
    post();
    QCoreApplication::postEvent(&recorder, new QEvent(QEvent::User));
    DoEvents();
    EXPECT_EQ(recorder.seen, QList{QEvent::User}) << "other events run";
    recorder.seen.clear();
    post();
    QCoreApplication::processEvents();
    EXPECT_EQ(recorder.seen, input);
}

}  // namespace orbkl4::test
