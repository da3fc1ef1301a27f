#include "platform/controls/text_field.h"

#include <QApplication>
#include <QClipboard>
#include <QElapsedTimer>
#include <QImage>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace orbkl4 {
namespace {

/// What is on the screen of `field`, in `Text` of which a newer text may wait.
std::string Shown(const TextField& field) { return field.text().toStdString(); }

/// Waits until `field` shows what was last set.
bool CatchesUp(const TextField& field) {
    return QTest::qWaitFor([&] { return Shown(field) == field.Text(); });
}

/// A picture of the field, one pixel for each of its own whatever the screen's scale.
QImage Shot(TextField& field) {
    QImage image(field.size(), QImage::Format_RGB32);
    field.render(&image);
    return image;
}

/// The box around all pixels that differ from the empty field.
QRect InkBox(const QImage& image, const QImage& empty) {
    QRect box;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != empty.pixel(x, y)) box |= QRect(x, y, 1, 1);
        }
    }
    return box;
}

TEST(TextField, KnowsItsTextAtOnceAndShowsItTwentyFiveTimesASecond) {
    TextField field;
    field.Text("before");
    EXPECT_EQ(Shown(field), "before") << "nothing is empty when its screen opens";
    field.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&field));
    QSignalSpy known(&field, &TextField::Changed);
    QSignalSpy shown(&field, &QLineEdit::textChanged);
    QElapsedTimer time;
    time.start();
    int texts = 0;
    const auto setsOne = [&] {
        const std::string text = std::to_string(texts++);
        field.Text(text);
        field.Text(text);
        EXPECT_EQ(field.Text(), text);
        EXPECT_EQ(field.property("text").toString().toStdString(), text);
    };
    EXPECT_TRUE(QTest::qWaitFor([&] { return setsOne(), shown.count() == 4; }));
    EXPECT_GE(time.elapsed(), 4 * 40 - 4) << "timers are precise to 1 ms";
    EXPECT_EQ(known.count(), texts) << "once for each";
    EXPECT_TRUE(CatchesUp(field));
}

TEST(TextField, CanGoWhileItsTextIsStillToBeShown) {
    auto field = std::make_unique<TextField>();
    TextField other;
    field->show();
    other.show();
    field->Text("1");
    other.Text("2");
    field.reset();
    EXPECT_TRUE(CatchesUp(other));
}

TEST(TextField, KeepsTheSelectionForCopyingWhileTextsComeIn) {
    TextField field;
    field.Decimals(4);
    field.Text("-179.9");
    const auto copied = [&] {
        QApplication::clipboard()->clear();
        QTest::keyClick(&field, Qt::Key_C, Qt::ControlModifier);
        return QApplication::clipboard()->text();
    };
    QTest::mouseDClick(&field, Qt::LeftButton);
    EXPECT_EQ(copied(), "-179.9");
    field.Text("-45.125");
    EXPECT_EQ(copied(), "-45.125") << "the whole text stays selected";

    field.setSelection(3, -2);  // as dragged from right to left
    field.Text("123456");
    EXPECT_EQ(copied(), "23");
    EXPECT_EQ(field.cursorPosition(), 1) << "a selection in the making goes on from its end";
    field.setSelection(2, 3);
    field.Text("987");
    EXPECT_EQ(copied(), "7");
    field.deselect();
    field.Text("98765");
    EXPECT_EQ(copied(), "");
}

TEST(TextField, KeepsThePointInOneColumn) {
    TextField field;
    QFont wholePixels = field.font();  // digits of other widths are up to a pixel off
    wholePixels.setHintingPreference(QFont::PreferFullHinting);
    field.setFont(wholePixels);
    field.resize(160, 28);
    field.Decimals(3);
    const QImage empty = Shot(field);
    field.Text("7");
    const QRect seven = InkBox(Shot(field), empty);
    ASSERT_GT(seven.width(), 2);
    const QImage digit = Shot(field).copy(seven);
    for (const char* text : {"7.5", "7.125", "-7.25", "107", "-17.001"}) {
        field.Text(text);
        EXPECT_EQ(Shot(field).copy(seven), digit) << text;
    }
    // What is too long for its room still shows all of itself inside the frame.
    field.Text("-1.234567890123");
    EXPECT_LT(InkBox(Shot(field), empty).right(), field.width() - 2);
    EXPECT_GT(InkBox(Shot(field), empty).left(), 2);
}

}  // namespace
}  // namespace orbkl4
