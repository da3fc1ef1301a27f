#include "platform/windows/mdi_frame.h"

#include "base/run_time_error.h"
#include "platform/windows/boxes.h"
#include "platform/windows/screen.h"
#include "platform/windows/screen_registry.h"
#include "support/box_answerer.h"
#include "support/wait.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <gtest/gtest.h>

#include <functional>
#include <utility>

namespace orbkl4::test {

namespace {

/// Wants more than two thirds of an offscreen display.
class LargeScreen : public Screen {
  public:
    static constexpr QSize wanted{700, 690};

    using Screen::Screen;

    QSize sizeHint() const override { return wanted; }
};

}  // namespace

class MdiFrameTest : public testing::Test {
  protected:
    MdiFrameTest() {
        RegisterScreen("Lower", [] { return new Screen("Lower", "Below"); });
        RegisterScreen("Upper", [] { return new Screen("Upper", "Above"); });
        PlaceScreensIn(&frame);
        frame.show();
    }
    ~MdiFrameTest() override {
        UnloadAllScreens();
        PlaceScreensIn(nullptr);
    }

    MdiFrame frame{"MDIForm1", "Frame"};
    QLineEdit* const foot = frame.findChild<QLineEdit*>(QStringLiteral("txtStatus"));
};

TEST_F(MdiFrameTest, ScreensFillItAndTheirTypeGrowsWithIt) {
    const double usual = QApplication::font().pointSizeF();
    for (const char* name : {"Lower", "Upper"}) ShowScreen(name);
    Screen& lower = *FindScreen("Lower");
    Screen& upper = *FindScreen("Upper");
    for (const auto& [size, growth] :
         {std::pair{QSize(1240, 760), 1.0}, std::pair{QSize(1900, 1140), 1.5},
          std::pair{QSize(3800, 2280), 2.0}, std::pair{QSize(960, 600), 1.0},
          std::pair{QSize(1900, 1140), 1.5}}) {
        frame.resize(size);
        ASSERT_TRUE(WaitFor([&, size = size] { return frame.size() == size; }));
        QCoreApplication::processEvents();
        EXPECT_EQ(upper.size(), upper.parentWidget()->size());
        EXPECT_EQ(upper.width(), size.width());
        EXPECT_NEAR(upper.font().pointSizeF() / usual, growth, 0.06) << size.width();
    }
    EXPECT_FALSE(lower.isVisible()) << "one at a time";
    upper.Unload();
    EXPECT_TRUE(lower.isVisible());
    EXPECT_EQ(lower.size(), lower.parentWidget()->size());
    EXPECT_EQ(lower.width(), 1900);
    EXPECT_GT(lower.font().pointSizeF(), 1.4 * usual);
    EXPECT_EQ(frame.findChild<QLabel*>(QStringLiteral("lblHeading"))->text(), "Below");
}

TEST(MdiFrame, StartsInsideTheDisplayMaximizedWhereItIsTooLarge) {
    struct Case {
        QSize display;
        QSize size;
        bool maximized;
    };
    ASSERT_EQ(QWidget().logicalDpiX(), 96) << "the sizes grow with the type";
    for (const Case& row :
         {Case{{1920, 1080}, {1240, 760}, false}, Case{{1256, 808}, {1240, 760}, false},
          Case{{1366, 768}, {1240, 720}, true}, Case{{1024, 700}, {1008, 652}, true},
          Case{{800, 480}, {784, 432}, true}}) {
        MdiFrame frame("MDIForm1", "Frame");
        frame.FitInto({QPoint(), row.display});
        EXPECT_EQ(frame.size(), row.size) << row.display.width();
        EXPECT_EQ(frame.isMaximized(), row.maximized) << row.display.width();
    }
}

TEST_F(MdiFrameTest, DialogsLieOnTheDisplayAndShowTheirWholeTitles) {
    RegisterScreen("Dialog", [] { return new Screen("Dialog", "A title of many words, in full"); });
    RegisterScreen("Large",
                   []() -> Screen* { return new LargeScreen("Large", "All of it is seen"); });
    const QRect available = frame.screen()->availableGeometry();
    ShowModalScreen("Large");
    EXPECT_EQ(FindScreen("Large")->size(), LargeScreen::wanted.boundedTo(available.size()));
    EXPECT_TRUE(available.contains(FindScreen("Large")->geometry()));
    FindScreen("Large")->Unload();
    for (const QPoint corner : {available.bottomRight(), available.topLeft() - QPoint(900, 700)}) {
        frame.move(corner);
        ShowModalScreen("Dialog");
        Screen& dialog = *FindScreen("Dialog");
        EXPECT_TRUE(available.contains(dialog.geometry())) << corner.x();
        EXPECT_GT(dialog.width(), dialog.fontMetrics().horizontalAdvance(dialog.windowTitle()));
        dialog.Unload();
    }
}

TEST_F(MdiFrameTest, IsActiveAgainWhenADialogHasGone) {
    RegisterScreen("Dialog", [] { return new Screen("Dialog", "A dialog"); });
    const std::pair<const char*, std::function<void(Screen&)>> ways[] = {
        {"Esc", [](Screen& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); }},
        {"close box", [](Screen& dialog) { dialog.close(); }},
        {"after a box", [](Screen& dialog) {
             const BoxAnswerer box;
             ShowMessage("Done");
             dialog.Unload();
         }}};
    for (const auto& [way, leave] : ways) {
        ShowModalScreen("Dialog");
        Screen& dialog = *FindScreen("Dialog");
        EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog)) << way;
        leave(dialog);
        EXPECT_TRUE(WaitFor([&] { return QApplication::activeWindow() == &frame; }, 2000)) << way;
    }
}

TEST_F(MdiFrameTest, TheFootKeepsWhatIsBeingMarked) {
    frame.Foot(QStringLiteral("one"));
    foot->selectAll();
    frame.Foot(QStringLiteral("two"));
    EXPECT_EQ(foot->selectedText(), "one");
    foot->deselect();
    frame.Foot(QStringLiteral("three"));
    EXPECT_EQ(foot->text(), "three");
    QTest::keyClicks(foot, QStringLiteral("x"));
    EXPECT_EQ(foot->text(), "three");
}

TEST_F(MdiFrameTest, TheFootIsTheLastTabStopAndCopiesWithoutMarks) {
    RegisterScreen("Filled", [] {
        auto* screen = new Screen("Filled", "With two fields");
        for (const char* name : {"txtOne", "txtTwo"})
            (new QLineEdit(screen))->setObjectName(QLatin1String(name));
        return screen;
    });
    for (const char* name : {"Lower", "Filled"}) ShowScreen(name);
    frame.Foot(QStringLiteral("all of it"), QStringLiteral("more"));
    frame.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&frame));
    for (const char* stop : {"txtOne", "txtTwo", "txtStatus", "txtOne"}) {
        QTest::keyClick(frame.focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(frame.focusWidget()->objectName(), stop);
    }
    foot->setFocus(Qt::TabFocusReason);
    frame.Foot(QStringLiteral("goes on"));
    QTest::keyClick(foot, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "goes on");
    FindScreen("Filled")->Unload();
    EXPECT_NE(frame.focusWidget(), foot) << "the screen below has the focus";
}

TEST_F(MdiFrameTest, AScreenThatIsNotRegisteredIsAnError) {
    for (const auto show : {ShowScreen, ShowModalScreen, ShowModelessScreen}) {
        try {
            show("Missing");
            ADD_FAILURE() << "shown";
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number(), ErrorNumber::SubscriptOutOfRange);
            EXPECT_STREQ(error.what(), "There is no screen named \"Missing\"");
        }
    }
}

}  // namespace orbkl4::test
