#include "platform/windows/boxes.h"
#include "platform/windows/screen_registry.h"
#include "support/screens/screen_fixture.h"
#include "support/wait.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>

#include <optional>

namespace orbkl4::test {

namespace {

using EnterKey = ScreenTest;

/// A modal screen, its tab, the control with the focus (none if empty), and the button that Enter
/// then presses.
struct Row {
    const char* screen;
    int tab;
    const char* focus;
    const char* pressed;
};

constexpr Row rows[] = {{"Connect", 0, "", "cmdConnectAuto"},
                        {"Connect", 0, "cmdQuitAuto", "cmdQuitAuto"},
                        {"Connect", 1, "", "cmdConnectManual"},
                        {"Connect", 1, "optBaud115200", "cmdConnectManual"},
                        {"Connect", 1, "cmdQuit", "cmdQuit"},
                        {"Connect", 2, "", "cmdQuitReset"},
                        {"Connect", 2, "cmdReset", "cmdReset"},
                        {"About", 0, "", "cmdOK"},
                        {"VersionSerial", 0, "", "cmdOK"},
                        {"VersionSerial", 0, "txtVersion", "cmdOK"},
                        {"GetTemperature", 0, "", "cmdGet"},
                        {"GetTemperature", 0, "cmdOK", "cmdOK"},
                        {"SetMode", 0, "", "cmdOK"},
                        {"SetMode", 0, "optRSB", "cmdOK"},
                        {"SetMode", 0, "cmdCancel", "cmdCancel"},
                        {"SetWriteRate", 0, "", "cmdOK"},
                        {"SetWriteRate", 0, "chkUnrestricted", "cmdOK"},
                        {"SetWriteRate", 0, "cmdCancel", "cmdCancel"}};

/// The answer of a Retry and Cancel box to Enter, with the focus on `focus` or as the box comes up.
Answer AnswerToEnter(std::optional<QMessageBox::StandardButton> focus) {
    QTimer::singleShot(0, qApp, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        QWidget* target = focus ? box->button(*focus) : static_cast<QWidget*>(box);
        target->setFocus();
        QTest::keyClick(target, Qt::Key_Return);
    });
    return AskRetryCancel("Again?");
}

}  // namespace

TEST_F(EnterKey, MarksAndPressesTheFocusedButtonOrElseTheScreensOwn) {
    for (const Row& row : rows) {
        SCOPED_TRACE(std::string(row.screen) + " tab " + std::to_string(row.tab) + ' ' + row.focus);
        Screen& screen = OpenModal(row.screen);
        if (auto* tabs = screen.findChild<QTabWidget*>()) tabs->setCurrentIndex(row.tab);
        if (screen.focusWidget() != nullptr) screen.focusWidget()->clearFocus();
        QWidget* target = *row.focus == '\0' ? &screen : &Get<QWidget>(screen, row.focus);
        if (target != &screen) target->setFocus();
        std::vector<std::string> marked;
        for (const auto* button : screen.findChildren<QPushButton*>())
            if (button->isDefault()) marked.push_back(button->objectName().toStdString());
        EXPECT_EQ(marked, std::vector<std::string>{row.pressed});
        std::vector<std::string> pressed;
        for (const auto* button : screen.findChildren<QAbstractButton*>()) {
            QObject::connect(button, &QAbstractButton::pressed, button, [&pressed, button] {
                pressed.push_back(button->objectName().toStdString());
            });
        }
        QTest::keyClick(target, Qt::Key_Return);
        EXPECT_EQ(pressed, std::vector<std::string>{row.pressed});
        screen.Unload();  // destroyed now, before the button's click follows
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

TEST_F(EnterKey, ResetsNothingAfterThePagesWereTurned) {
    Screen& screen = OpenModal("Connect");
    const auto focused = [&] { return screen.focusWidget()->objectName().toStdString(); };
    EXPECT_EQ(focused(), "cmdConnectAuto");
    for (const char* start : {"NumEditCommPort", "cmdQuitReset", "cmdConnectAuto"}) {
        QTest::keyClick(screen.focusWidget(), Qt::Key_Tab, Qt::ControlModifier);
        EXPECT_EQ(focused(), start);
        if (focused() == "NumEditCommPort")
            QTest::keyClicks(screen.focusWidget(), QStringLiteral("12"));
    }
    EXPECT_EQ(Property(screen, "NumEditCommPort", "value"), "12") << "typing replaces the number";
    screen.findChild<QTabBar*>()->setFocus();
    for (int turns = 0; turns < 2; ++turns) QTest::keyClick(screen.focusWidget(), Qt::Key_Right);
    EXPECT_EQ(screen.findChild<QTabWidget*>()->currentIndex(), 2) << "the focus stays on the tabs";
    QTest::keyClick(screen.focusWidget(), Qt::Key_Return);
    EXPECT_TRUE(WaitFor([] { return FindScreen("Connect") == nullptr; }));
    EXPECT_TRUE(Heard().empty());
}

TEST_F(EnterKey, AnswersABoxByRetryUnlessTheFocusIsOnCancel) {
    EXPECT_EQ(AnswerToEnter({}), Answer::Retry);
    EXPECT_EQ(AnswerToEnter(QMessageBox::Cancel), Answer::Cancel);
}

}  // namespace orbkl4::test
