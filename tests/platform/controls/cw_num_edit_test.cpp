#include "platform/controls/cw_num_edit.h"

#include "platform/windows/pending_input.h"

#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <gtest/gtest.h>

namespace orbkl4 {
namespace {

/// A window with two fields, the first with the focus.
class CWNumEditTest : public testing::Test {
  protected:
    CWNumEditTest() {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(edit = new CWNumEdit);
        layout->addWidget(other = new CWNumEdit);
        window.resize(200, 120);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        edit->setFocus();
        edit->Limits(0, 65535);
    }

    QString Shown() const { return edit->findChild<QLineEdit*>()->text(); }

    void Type(const QString& text) {
        QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(edit, Qt::Key_Delete);
        QTest::keyClicks(edit, text);
    }

    QWidget window;
    CWNumEdit* edit = nullptr;
    CWNumEdit* other = nullptr;
};

TEST_F(CWNumEditTest, TakesWhatIsTypedOnceAndInsideTheLimits) {
    struct Case {
        double minimum, maximum, start;
        const char* typed;
        double value;
        const char* shown;
        int changes;
        bool whole;
    };
    const Case cases[] = {
        {0, 65535, 100, "42", 42, "42", 1, true},
        {0, 65535, 100, "100", 100, "100", 0, true},
        {0, 65535, 100, "70000", 65535, "65535", 1, true},
        {1, 16, 70000, "70000", 70000, "70000", 0, true},  // set by code outside the limits
        {0, 65535, 100, "-1", 0, "0", 1, true},
        {-32768, 32767, 0, "-32768", -32768, "-32768", 1, true},
        {0, 65535, 100, " 12.7 ", 13, "13", 1, true},
        {0, 65535, 100, "1e999", 100, "100", 0, true},
        {0.01, 157, 10, "0.001", 0.01, "0.01", 1, false},
        {-5, 5, 0.52, "-.52", -0.52, "-0.52", 1, false},
        {-5, 5, 0.52, "0,25", 0.52, "0.52", 0, false},
        {-5, 5, 0.52, "1x", 0.52, "0.52", 0, false},
    };
    for (const Case& one : cases) {
        edit->WholeNumbers(one.whole);
        edit->Limits(one.minimum, one.maximum);
        edit->Value(one.start);
        QSignalSpy changes(edit, &CWNumEdit::ValueChanged);
        Type(one.typed);
        EXPECT_EQ(changes.count(), 0) << one.typed;
        EXPECT_EQ(edit->Value(), one.start) << one.typed;
        QTest::keyClick(edit, one.whole ? Qt::Key_Return : Qt::Key_Enter);
        EXPECT_EQ(edit->Value(), one.value) << one.typed;
        EXPECT_EQ(Shown(), one.shown) << one.typed;
        other->setFocus();
        edit->setFocus();
        EXPECT_EQ(changes.count(), one.changes) << one.typed;
    }
}

TEST_F(CWNumEditTest, CommitsOnLeavingAndWhenAMenuOpens) {
    QSignalSpy changes(edit, &CWNumEdit::ValueChanged);
    Type("5");
    other->setFocus();
    EXPECT_EQ(edit->Value(), 5);

    edit->setFocus();
    Type("6");
    CommitPendingInput();
    CommitPendingInput();
    EXPECT_EQ(edit->Value(), 6);
    EXPECT_EQ(changes.count(), 2);
}

TEST_F(CWNumEditTest, DropsWhatIsBeingTypedWhenCodeSetsTheValueOrEscIsPressed) {
    edit->Value(3);
    QSignalSpy changes(edit, &CWNumEdit::ValueChanged);
    Type("9");
    edit->Value(3);
    EXPECT_EQ(Shown(), "3");
    Type("8");
    QTest::keyClick(edit, Qt::Key_Escape);
    EXPECT_EQ(Shown(), "3");
    other->setFocus();
    EXPECT_EQ(edit->Value(), 3);
    EXPECT_EQ(changes.count(), 0);
}

TEST_F(CWNumEditTest, StepsWithoutRoundingErrorTowardsTheLimits) {
    struct Case {
        double start, increment, minimum, maximum;
        Qt::Key key;
        int times;
        double value;
    };
    const Case cases[] = {
        {0.52, 0.01, -5, 5, Qt::Key_Up, 3, 0.55},   {0, 0.1, -5, 5, Qt::Key_Up, 8, 0.8},
        {15, 1, 1, 16, Qt::Key_Up, 3, 16},          {15, 1, 1, 16, Qt::Key_PageDown, 2, 1},
        {70000, 1, 0, 65535, Qt::Key_Up, 1, 70000}, {70000, 1, 0, 65535, Qt::Key_Down, 1, 65535},
        {0, 1, 0.01, 157, Qt::Key_Down, 1, 0},      {0, 1, 0.01, 157, Qt::Key_Up, 1, 1},
    };
    for (const Case& one : cases) {
        edit->Value(one.start);
        edit->Increment(one.increment);
        edit->Limits(one.minimum, one.maximum);
        for (int i = 0; i < one.times; ++i) QTest::keyClick(edit, one.key);
        EXPECT_EQ(edit->Value(), one.value) << one.start << " by " << one.increment;
    }
    edit->Limits(0, 100);
    Type("41");
    QTest::keyClick(edit, Qt::Key_Up);
    EXPECT_EQ(edit->Value(), 42) << "from what is being typed";
}

TEST_F(CWNumEditTest, HeedsTheWheelOnlyWithTheFocus) {
    other->Value(7);
    for (const int reached : {7, 8}) {
        QWheelEvent turn({9, 9}, {9, 9}, {}, {0, 120}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(other, &turn);
        EXPECT_EQ(other->Value(), reached);
        other->setFocus();
    }
}

TEST_F(CWNumEditTest, ChangesItsColour) {
    const QColor plain = edit->palette().color(QPalette::Base);
    edit->BackColorText(0x010203);
    EXPECT_EQ(edit->palette().color(QPalette::Base), QColor(3, 2, 1));
    edit->BackColorText(windowBackground);
    EXPECT_EQ(edit->palette().color(QPalette::Base), plain);
}

}  // namespace
}  // namespace orbkl4
