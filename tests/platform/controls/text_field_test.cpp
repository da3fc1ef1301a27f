#include "platform/controls/text_field.h"

#include <QApplication>
#include <QClipboard>
#include <QImage>
#include <QTest>
#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace orbkl4 {
namespace {

/// Counts the paintings of a widget.
class PaintCount : public QObject {
  public:
    explicit PaintCount(QWidget* widget) { widget->installEventFilter(this); }
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() == QEvent::Paint) ++count;
        return false;
    }
    int count = 0;
};

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

TEST(TextField, PaintsABurstOfTextsOnceAndEqualTextsNever) {
    QWidget window;
    TextField field(&window);
    TextField later(&window);
    window.resize(100, 80);
    field.setGeometry(0, 0, 100, 30);
    later.setGeometry(0, 40, 100, 30);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    QCoreApplication::processEvents();
    PaintCount paints(&field);
    PaintCount laterPaints(&later);
    for (int i = 0; i < 500; ++i) field.Text(std::to_string(i));
    ASSERT_TRUE(QTest::qWaitFor([&] { return paints.count > 0; }));
    for (int i = 0; i < 500; ++i) field.Text("499");
    later.Text("1");  // painted after whatever the field still has to paint
    ASSERT_TRUE(QTest::qWaitFor([&] { return laterPaints.count > 0; }));
    EXPECT_EQ(paints.count, 1);
    field.Text("500");
    EXPECT_TRUE(QTest::qWaitFor([&] { return paints.count == 2; }));
}

TEST(TextField, CanGoWhileItsPaintingIsStillDue) {
    auto field = std::make_unique<TextField>();
    TextField other;
    field->Text("1");
    other.Text("2");
    field.reset();
    PaintCount paints(&other);
    other.show();
    EXPECT_TRUE(QTest::qWaitFor([&] { return paints.count > 0; }));
}

TEST(TextField, GivesTheSelectedTextToTheClipboard) {
    TextField field;
    field.resize(200, 28);
    field.Text("-179.9");
    const QPoint left(1, 14);
    const QPoint right(199, 14);
    const auto copied = [&] {
        QApplication::clipboard()->clear();
        QTest::keyClick(&field, Qt::Key_C, Qt::ControlModifier);
        return QApplication::clipboard()->text();
    };
    QTest::mouseDClick(&field, Qt::LeftButton);
    EXPECT_EQ(copied(), "-179.9");
    QTest::mouseClick(&field, Qt::LeftButton, {}, right);
    EXPECT_EQ(copied(), "") << "nothing is selected any more";

    QTest::mousePress(&field, Qt::LeftButton, {}, left);
    QMouseEvent move(QEvent::MouseMove, right, field.mapToGlobal(right), Qt::NoButton,
                     Qt::LeftButton, {});
    QApplication::sendEvent(&field, &move);
    QTest::mouseRelease(&field, Qt::LeftButton, {}, right);
    EXPECT_EQ(copied(), "-179.9");

    QTest::keyClick(&field, Qt::Key_Home);
    QTest::keyClick(&field, Qt::Key_Right);
    for (int i = 0; i < 3; ++i) QTest::keyClick(&field, Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(copied(), "179");
    QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(copied(), "-179.9");
}

TEST(TextField, KeepsASelectionOverNewTexts) {
    TextField field;
    field.Text("12345");
    QTest::mouseDClick(&field, Qt::LeftButton);
    field.Text("1234567");
    EXPECT_EQ(field.SelectedText(), "1234567");
    QTest::keyClick(&field, Qt::Key_End, Qt::ShiftModifier);
    field.Text("12");
    EXPECT_EQ(field.SelectedText(), "12");
}

TEST(TextField, TakesTheFocusByTab) {
    QWidget window;
    TextField first(&window);
    TextField second(&window);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    first.setFocus();
    QTest::keyClick(&first, Qt::Key_Tab);
    EXPECT_EQ(window.focusWidget(), &second);
}

TEST(TextField, KeepsThePointInOneColumn) {
    TextField field;
    field.setFocusPolicy(Qt::NoFocus);
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
