#include "base/run_time_error.h"
#include "platform/controls/combo_box.h"
#include "platform/controls/option_button.h"

#include <QAbstractItemView>
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
