#include "base/run_time_error.h"
#include "platform/boxes.h"
#include "platform/do_events.h"
#include "platform/mdi_frame.h"
#include "platform/menu_entry.h"
#include "platform/mscomm.h"
#include "platform/screen.h"
#include "platform/screen_registry.h"
#include "platform/timer.h"
#include "support/box_hand.h"
#include "support/pseudo_terminal.h"
#include "support/surroundings.h"
#include "support/wait.h"

#include <QElapsedTimer>
#include <QMenu>
#include <QMenuBar>
#include <gtest/gtest.h>

namespace orbkl4::test {

namespace {

/// A timer whose ticks are counted and timed.
class CountedTimer {
  public:
    explicit CountedTimer(int interval) : timer(nullptr, "TimerTest", interval) {
        QObject::connect(&timer, &Timer::Tick, &timer, [this] {
            gaps.push_back(sinceHandler.isValid() ? sinceHandler.elapsed() : -1);
            ++ticks;
            if (onTick) onTick();
            sinceHandler.start();
        });
        timer.Enabled(true);
    }

    Timer timer;
    int ticks = 0;
    std::vector<qint64> gaps;  ///< from the end of a handler to the next tick, in milliseconds
    std::function<void()> onTick;

  private:
    QElapsedTimer sinceHandler;
};

/// An open port on a line whose far end the test holds, its events counted.
class EventContract : public testing::Test {
  protected:
    EventContract() : port(nullptr, "MSComm1") {
        surroundings.LinkPort(1, line.Path());
        port.CommPort(1);
        port.Settings("38400,n,8,1");
        QObject::connect(&port, &MSComm::OnComm, &port, [this] {
            ++events;
            if (onComm) onComm();
        });
    }

    void Open(std::int16_t threshold) {
        port.RThreshold(threshold);
        port.PortOpen(true);
    }

    Surroundings surroundings;
    PseudoTerminal line;
    MSComm port;
    int events = 0;
    std::function<void()> onComm;
};

const Bytes fiveBytes{1, 2, 3, 4, 5};

}  // namespace

TEST_F(EventContract, NothingIsDeliveredWhileABoxIsUp) {
    Open(5);
    CountedTimer timer(20);
    int ticksInBox = 0;
    int eventsInBox = 0;
    BoxHand hand;
    hand.Hesitate(150);
    hand.BeforeAnswer([&](QMessageBox&) {
        ticksInBox = timer.ticks;
        eventsInBox = events;
    });
    line.Send(fiveBytes);
    ShowMessage("Held up");
    EXPECT_EQ(ticksInBox, 0);
    EXPECT_EQ(eventsInBox, 0);
    EXPECT_TRUE(WaitFor([&] { return timer.ticks > 0 && events == 1; }))
        << "what was due behind the box comes after it";
}

TEST_F(EventContract, AHandlerRunsToCompletionEvenIfItShowsABox) {
    Open(5);
    CountedTimer timer(10);
    BoxHand hand;
    hand.Hesitate(60);
    bool interrupted = false;
    onComm = [&] {
        Bytes bytes;
        port.Input(bytes);
        const int ticks = timer.ticks;
        ShowMessage("In the handler");
        interrupted = timer.ticks != ticks;
    };
    line.Send(fiveBytes);
    ASSERT_TRUE(WaitFor([&] { return hand.Count() == 1 && events == 1; }));
    EXPECT_FALSE(interrupted);
}

TEST_F(EventContract, TicksKeepTheirDistanceFromTheEndOfTheHandler) {
    CountedTimer timer(30);
    timer.onTick = [&] {
        QElapsedTimer busy;
        busy.start();
        while (busy.elapsed() < 70) {
        }
    };
    ASSERT_TRUE(WaitFor([&] { return timer.ticks == 5; }));
    timer.timer.Enabled(false);
    for (std::size_t i = 1; i < timer.gaps.size(); ++i) EXPECT_GE(timer.gaps[i], 29);
    LetPass(80);
    EXPECT_EQ(timer.ticks, 5) << "a disabled timer is silent and makes nothing up";
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

    Bytes bytes;
    port.Input(bytes);
    EXPECT_EQ(bytes, fiveBytes);
    const int before = events;
    line.Send({1, 2, 3, 4});
    LetPass(50);
    EXPECT_EQ(events, before) << "one byte short of the threshold";
    line.Send({5});
    EXPECT_TRUE(WaitFor([&] { return events > before; }));
}

TEST_F(EventContract, AfterAnErrorBoxEventsRestASecondAndWhileAMenuIsOpen) {
    Open(5);
    CountedTimer timer(10);
    QElapsedTimer sinceAnswer;
    qint64 firstTick = -1;
    timer.onTick = [&] {
        if (firstTick < 0 && sinceAnswer.isValid()) firstTick = sinceAnswer.elapsed();
    };
    BoxHand hand;
    AskErrorRetryCancel("It went wrong");
    sinceAnswer.start();
    line.Send(fiveBytes);
    ASSERT_TRUE(WaitFor([&] { return firstTick >= 0 && events > 0; }));
    EXPECT_GE(firstTick, 990);

    ShowErrorMessage("It went wrong again");
    QMenu menu;
    menu.addAction(QStringLiteral("Return"));
    menu.popup(QPoint(0, 0));
    const int ticks = timer.ticks;
    LetPass(1300);
    EXPECT_EQ(timer.ticks, ticks) << "the menu is still open";
    menu.close();
    EXPECT_TRUE(WaitFor([&] { return timer.ticks > ticks; }));
}

TEST_F(EventContract, InputTakesInWhatTheSystemHasReceivedWithoutRunningHandlers) {
    Open(5);
    CountedTimer timer(1);
    line.Send(fiveBytes);
    QElapsedTimer waited;
    waited.start();
    Bytes bytes;
    while (bytes.size() < 5 && waited.elapsed() < 2000) {
        Bytes more;
        port.Input(more);
        bytes.insert(bytes.end(), more.begin(), more.end());
    }
    EXPECT_EQ(bytes, fiveBytes);
    EXPECT_EQ(events, 0);
    EXPECT_EQ(timer.ticks, 0);
    port.Output({0xF0});
    EXPECT_EQ(line.Take(1), Bytes{0xF0}) << "handed over at once, without the event loop";
}

TEST_F(EventContract, AMenuEntrysCheckMarkIsTheProgramsAlone) {
    QWidget screen;
    MenuEntry entry(&screen, {"mnuSample", "&Sample"});
    int clicks = 0;
    QObject::connect(&entry, &MenuEntry::Click, &screen, [&] { ++clicks; });
    entry.trigger();
    EXPECT_FALSE(entry.isChecked());
    entry.Checked(true);
    entry.trigger();
    EXPECT_TRUE(entry.isChecked()) << "Qt would have taken the mark off";
    EXPECT_EQ(clicks, 2);
    entry.Enabled(false);
    entry.trigger();
    EXPECT_EQ(clicks, 2);
}

namespace {

class CountingScreen : public Screen {
  public:
    explicit CountingScreen(const char* name) : Screen(name, name) {
        static constexpr MenuRow menu[] = {{"mnuFile", "&File"},
                                           {"mnuReturn", "&Return", "mnuFile"}};
        BuildMenu(menu);
    }
    void Form_Load() override { journal += isVisible() ? "L!" : "L"; }
    void Form_Activate() override { journal += isVisible() ? "A" : "A!"; }
    ~CountingScreen() override { journal += "D"; }

    inline static std::string journal;
};

Screen* MakeHub() { return new CountingScreen("Hub"); }
Screen* MakeView() { return new CountingScreen("View"); }

}  // namespace

TEST_F(EventContract, AScreenBecomesActiveOnceAfterItIsShown) {
    CountingScreen::journal.clear();
    RegisterScreen("View", MakeView);
    MdiFrame frame("MDIForm1", "Frame");
    PlaceScreensIn(&frame);
    frame.show();
    ShowScreen("View");
    ShowScreen("View");
    LetPass(20);
    EXPECT_EQ(CountingScreen::journal, "LA");
    BoxHand hand;
    ShowMessage("Comes and goes");
    frame.menuBar()->actions().constFirst()->menu<QMenu*>()->popup(QPoint());
    LetPass(20);
    frame.menuBar()->actions().constFirst()->menu<QMenu*>()->close();
    LetPass(20);
    EXPECT_EQ(CountingScreen::journal, "LA");
    EXPECT_EQ(ActiveScreenName(), "View");
}

TEST_F(EventContract, UnloadingStopsAScreenAtOnceAndDestroysItLater) {
    CountingScreen::journal.clear();
    RegisterScreen("Hub", MakeHub);
    RegisterScreen("View", MakeView);
    MdiFrame frame("MDIForm1", "Frame");
    PlaceScreensIn(&frame);
    frame.show();
    ShowScreen("Hub");
    ShowScreen("View");
    Screen* view = FindScreen("View");
    auto* timer = new Timer(view, "TimerSampling", 5);
    auto* viewPort = new MSComm(view, "MSComm1");
    viewPort->CommPort(1);
    int ticks = 0;
    QObject::connect(timer, &Timer::Tick, view, [&] { ++ticks; });
    viewPort->PortOpen(true);
    timer->Enabled(true);
    {
        const HandlerScope handler;
        view->Unload();
        view->Unload();
        EXPECT_EQ(FindScreen("View"), nullptr);
        EXPECT_EQ(ActiveScreenName(), "Hub");
        EXPECT_FALSE(viewPort->PortOpen());
        LetPass(30);  // a box of the handler would let events run as this does
        EXPECT_EQ(CountingScreen::journal.find('D'), std::string::npos);
    }
    EXPECT_TRUE(WaitFor([] { return CountingScreen::journal.find('D') != std::string::npos; }));
    EXPECT_EQ(ticks, 0);
    EXPECT_TRUE(FindScreen("Hub")->isVisible());
    Open(5);  // the line is free again at once
}

TEST_F(EventContract, ADialogThatIsBusyCantBeClosedByHand) {
    CountingScreen::journal.clear();
    RegisterScreen("View", MakeView);
    MdiFrame frame("MDIForm1", "Frame");
    PlaceScreensIn(&frame);
    frame.show();
    RegisterScreen("Dialog", [] { return static_cast<Screen*>(new Screen("Dialog", "Dialog")); });
    ShowModalScreen("Dialog");
    Screen* dialog = FindScreen("Dialog");
    dialog->CloseAllowed(false);
    QTest::keyClick(dialog, Qt::Key_Escape);
    dialog->close();
    EXPECT_EQ(FindScreen("Dialog"), dialog);

    QCoreApplication::postEvent(dialog,
                                new QKeyEvent(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier));
    dialog->CloseAllowed(true);
    DoEvents();
    EXPECT_EQ(FindScreen("Dialog"), dialog) << "a key pressed meanwhile is dropped";
    QTest::keyClick(dialog, Qt::Key_Escape);
    EXPECT_EQ(FindScreen("Dialog"), nullptr);
}

}  // namespace orbkl4::test
