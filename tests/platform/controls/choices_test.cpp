#include "base/run_time_error.h"
#include "platform/controls/combo_box.h"
#include "platform/controls/option_button.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QGroupBox>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>
#include <gtest/gtest.h>

namespace orbkl4 {
namespace {

TEST(OptionButton, RaisesClickWhenItComesOnAndCanBeCleared) {
    QWidget frame;
    OptionButton one("1", &frame);
    OptionButton four("4", &frame);
    QStringList log;
    QObject::connect(&one, &OptionButton::Click, [&] { log << "1"; });
    QObject::connect(&four, &OptionButton::Click, [&] { log << "4"; });
    one.Value(true);
    one.Value(true);
    QTest::mouseClick(&four, Qt::LeftButton, {}, QPoint(8, four.height() / 2));
    EXPECT_TRUE(four.Value());
    EXPECT_FALSE(one.Value());
    one.Value(true);
    one.Value(false);
    EXPECT_FALSE(one.Value() || four.Value()) << "none needs to be chosen";
    four.Value(true);
    one.Value(true);
    EXPECT_FALSE(four.Value()) << "they still exclude each other";
    EXPECT_EQ(log, (QStringList{"1", "4", "1", "4", "1"}));
}

TEST(OptionButton, TabGoesToTheChosenOneAndArrowsMoveTheChoice) {
    QWidget window;
    QLineEdit before(&window);
    QGroupBox frame(&window);
    std::vector<OptionButton*> options;
    for (int i = 0; i < 3; ++i) {
        options.push_back(new OptionButton(QString::number(i), &frame));
        options.back()->move(0, 20 * i);
    }
    QLineEdit after(&window);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    const auto press = [](Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); };
    struct Case {
        int chosen;  ///< by code; -1 for none
        int stop;    ///< where the Tab key stops
        std::vector<std::pair<Qt::Key, int>> arrows;
    };
    for (const auto& [chosen, stop, arrows] :
         {Case{2, 2, {{Qt::Key_Up, 1}, {Qt::Key_Up, 0}, {Qt::Key_Down, 1}}},
          Case{0, 0, {{Qt::Key_Down, 1}}}, Case{-1, 0, {{Qt::Key_Down, 1}, {Qt::Key_Up, 0}}}}) {
        for (OptionButton* option : options) option->Value(false);
        if (chosen >= 0) options.at(chosen)->Value(true);
        before.setFocus();
        press(Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget(), options.at(stop)) << chosen;
        EXPECT_EQ(options.at(stop)->Value(), chosen >= 0) << "Tab chooses nothing";
        for (const auto& [arrow, now] : arrows) {
            press(arrow);
            EXPECT_EQ(QApplication::focusWidget(), options.at(now)) << chosen;
            EXPECT_TRUE(options.at(now)->Value()) << chosen;
        }
        press(Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget(), &after) << "one stop for the whole frame";
    }
    options[2]->Value(true);
    options[0]->setFocus();  // as by a press of the mouse that ends elsewhere
    before.setFocus();
    press(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), options[2]);
}

/// A list of three rows with the focus.
class ComboBoxTest : public testing::Test {
  protected:
    ComboBoxTest() : clicks(&box, &ComboBox::Click) {
        for (const char* text : {"Off", "Test", "Custom"}) box.AddItem(text);
        box.show();
        box.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&box));
    }

    ComboBox box;
    QSignalSpy clicks;
};

TEST_F(ComboBoxTest, RaisesClickAtEveryAssignment) {
    EXPECT_EQ(box.ListIndex(), -1);
    EXPECT_EQ(clicks.count(), 0) << "a list starts without a choice";
    for (const int row : {1, 1, 0, -1, 2}) {
        clicks.clear();
        box.ListIndex(row);
        EXPECT_EQ(clicks.count(), 1) << row;
        EXPECT_EQ(box.ListIndex(), row);
    }
    for (const int none : {3, -2}) EXPECT_THROW(box.ListIndex(none), RuntimeError);
    EXPECT_EQ(clicks.count(), 1);
    EXPECT_EQ(box.Text(), "Custom");
}

TEST_F(ComboBoxTest, RaisesClickOnceForEveryChoiceOfTheUser) {
    box.ListIndex(0);
    clicks.clear();
    QTest::keyClick(&box, Qt::Key_Down);
    EXPECT_EQ(box.ListIndex(), 1);
    EXPECT_EQ(clicks.count(), 1);
    for (const int row : {2, 2}) {  // the second time it is chosen already
        clicks.clear();
        box.showPopup();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(box.view()->window()));
        box.view()->setCurrentIndex(box.model()->index(row, 0));
        QTest::keyClick(box.view(), Qt::Key_Return);
        EXPECT_EQ(box.ListIndex(), row);
        EXPECT_EQ(clicks.count(), 1);
    }
    box.clearFocus();
    QWheelEvent turn({9, 9}, {9, 9}, {}, {0, 120}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&box, &turn);
    EXPECT_EQ(box.ListIndex(), 2) << "a wheel without the focus";
}

}  // namespace
}  // namespace orbkl4
