#include "base/number_text.h"
#include "platform/controls/axis.h"
#include "platform/controls/cw_button.h"
#include "platform/controls/cw_knob.h"
#include "platform/controls/cw_slide.h"
#include "platform/controls/text_field.h"

#include <QImage>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>
#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <numbers>
#include <utility>

namespace orbkl4 {
namespace {

/// A picture of a control, one pixel for each of its own whatever the screen's scale.
QImage Shot(QWidget& control) {
    QImage image(control.size(), QImage::Format_RGB32);
    image.fill(Qt::gray);
    control.render(&image, {}, {}, QWidget::DrawChildren);
    return image;
}

constexpr Axis wordAxis{0, 65535, 5000, 2500};
constexpr Axis turnAxis{-179.99, 179.99, 20, 10};
constexpr Axis tickAxis{2, 25, 1, 0.5};

TEST(Axis, HasItsMarksAtWholeMultiples) {
    struct Case {
        Axis axis;
        double distance, first, last;
        std::size_t count;
    };
    for (const Case& one :
         {Case{wordAxis, 5000, 0, 65000, 14}, Case{turnAxis, 20, -180, 180, 19},
          Case{{-90, 90, 20, 10}, 20, -80, 80, 9}, Case{{-50, 100, 10, 5}, 5, -50, 100, 31},
          Case{tickAxis, 5, 5, 25, 5}}) {
        const std::vector<double> marks = one.axis.Multiples(one.distance);
        ASSERT_EQ(marks.size(), one.count) << one.distance;
        EXPECT_EQ(marks.front(), one.first);
        EXPECT_EQ(marks.back(), one.last);
    }
}

TEST(CWSlide, RaisesItsEventWhenTheValueDiffersAndKeepsWhatTheAxisCannotShow) {
    CWSlide slide;
    slide.SetAxis(wordAxis);
    slide.resize(80, 300);
    QSignalSpy changes(&slide, &CWSlide::ValueChanged);
    slide.Value(65535);
    slide.Value(65535);
    const QPointF top = slide.PointerPlace();
    slide.Value(70000);
    EXPECT_EQ(slide.PointerPlace(), top);
    slide.Value(0);
    const QPointF bottom = slide.PointerPlace();
    slide.Value(-450);
    EXPECT_EQ(slide.PointerPlace(), bottom);
    EXPECT_EQ(slide.Value(), -450);
    EXPECT_GT(bottom.y(), top.y() + 200);
    EXPECT_EQ(changes.count(), 4);
}

TEST(CWSlide, LeavesTheMouseAloneUnlessInteractive) {
    CWSlide slide;
    slide.resize(100, 300);
    QTest::mouseClick(&slide, Qt::LeftButton, {}, QPoint(40, 40));
    QTest::keyClick(&slide, Qt::Key_Up);
    EXPECT_EQ(slide.Value(), 0);
    EXPECT_EQ(slide.focusPolicy(), Qt::NoFocus);
}

TEST(CWSlide, FollowsKeysWheelAndMouseInExactTenths) {
    CWSlide slide;
    slide.SetAxis(tickAxis);
    slide.Orientation(Qt::Horizontal);
    slide.MakeInteractive(0.1);
    slide.resize(400, 60);
    slide.Value(2);
    for (int tenths = 20; tenths <= 250; ++tenths) {
        ASSERT_EQ(slide.Value(), tenths / 10.0);
        QTest::keyClick(&slide, Qt::Key_Right);
    }
    EXPECT_EQ(slide.Value(), 25);
    const std::map<Qt::Key, double> reached{
        {Qt::Key_Up, 10.1},    {Qt::Key_Left, 9.9}, {Qt::Key_Down, 9.9}, {Qt::Key_PageUp, 11},
        {Qt::Key_PageDown, 9}, {Qt::Key_Home, 2},   {Qt::Key_End, 25}};
    for (const auto& [key, value] : reached) {
        slide.Value(10);
        QTest::keyClick(&slide, key);
        EXPECT_EQ(slide.Value(), value);
    }

    slide.Value(10);
    for (const int eighths : {60, 60, -360}) {  // half notches add up
        QWheelEvent turn({9, 9}, {9, 9}, {}, {0, eighths}, Qt::NoButton, {}, Qt::NoScrollPhase,
                         false);
        QCoreApplication::sendEvent(&slide, &turn);
    }
    EXPECT_EQ(slide.Value(), 9.8);

    slide.Value(20);
    const QPoint atTwenty = slide.PointerPlace().toPoint();
    slide.Value(2);
    QTest::mouseClick(&slide, Qt::LeftButton, {}, atTwenty);
    EXPECT_NEAR(slide.Value(), 20, 0.1);

    for (const auto& [pixels, value] : {std::pair{0, 10}, {-1000, 2}, {1000, 25}}) {
        slide.Value(10);
        const QPoint start = slide.PointerPlace().toPoint();
        const QPoint end = start + QPoint(pixels, 0);
        QTest::mousePress(&slide, Qt::LeftButton, {}, start);
        QMouseEvent move(QEvent::MouseMove, end, slide.mapToGlobal(end), Qt::NoButton,
                         Qt::LeftButton, {});
        QCoreApplication::sendEvent(&slide, &move);
        QTest::mouseRelease(&slide, Qt::LeftButton, {}, end);
        EXPECT_EQ(slide.Value(), value);
    }
}

TEST(CWKnob, TurnsItsNeedleOverTheSweepAndNoFarther) {
    struct Case {
        Axis axis;
        CWKnob::Sweep sweep;
        double value, degrees;
    };
    const Axis halfAxis{-90, 90, 20, 10};
    for (const Case& one : {Case{turnAxis, CWKnob::Sweep::FullCircle, 0, 0},
                            Case{turnAxis, CWKnob::Sweep::FullCircle, -90, -90.005},
                            Case{turnAxis, CWKnob::Sweep::FullCircle, 180, 180},
                            Case{turnAxis, CWKnob::Sweep::FullCircle, -200, -180},
                            Case{halfAxis, CWKnob::Sweep::HalfCircle, 45, 45},
                            Case{halfAxis, CWKnob::Sweep::HalfCircle, 120, 90},
                            Case{halfAxis, CWKnob::Sweep::HalfCircle, -1000, -90}}) {
        CWKnob knob;
        QSignalSpy changes(&knob, &CWKnob::ValueChanged);
        knob.SetAxis(one.axis, one.sweep);
        knob.Value(one.value);
        knob.Value(one.value);
        EXPECT_EQ(changes.count(), 2) << "at every assignment";
        EXPECT_NEAR(knob.NeedleDegrees(), one.degrees, 0.001);
        EXPECT_EQ(knob.Value(), one.value);
    }
}

TEST(CWKnob, PaintsItsNeedleWhereItPoints) {
    CWKnob knob;
    knob.resize(200, 200);
    const auto lightAt = [&](double degrees) {
        const QImage picture = Shot(knob);
        const double radians = degrees * std::numbers::pi / 180;
        const QPointF place(99.5 + 40 * std::sin(radians), 99.5 - 40 * std::cos(radians));
        return picture.pixelColor(place.toPoint()).red();
    };
    for (const double value : {0.0, 90.0, -135.0}) {
        knob.Value(value);
        for (const double degrees : {0.0, 90.0, -135.0}) {
            EXPECT_EQ(lightAt(degrees) > 200, degrees == value) << value << " at " << degrees;
        }
    }
}

TEST(Controls, LeaveNothingOfAnOldValueOnTheScreen) {
    QWidget window;
    window.resize(500, 300);
    CWKnob knob(&window);
    knob.setGeometry(0, 0, 250, 250);
    CWSlide slide(&window);
    slide.SetAxis(wordAxis);
    slide.setGeometry(260, 0, 90, 280);
    CWSlide thermometer(&window);
    thermometer.Style(CWSlide::Look::Thermometer);
    thermometer.setGeometry(360, 0, 120, 280);
    TextField number(&window);
    number.Decimals(3);
    number.setGeometry(260, 282, 120, 18);
    CWButton lamp(&window);
    lamp.setGeometry(400, 280, 20, 20);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    const auto showsItsPresentState = [&] {
        constexpr auto format = QImage::Format_RGB32;
        const QImage shown = window.screen()->grabWindow(window.winId()).toImage();
        const QImage whole = window.grab().toImage();  // larger on a scaled screen
        return shown.convertToFormat(format) == whole.copy(shown.rect()).convertToFormat(format);
    };
    for (const double share : {0.1, 0.9, 0.4, 2.0, 0.0}) {
        knob.Value(-180 + 360 * share);
        slide.Value(65535 * share);
        thermometer.Value(100 * share);
        number.Text(ScreenText(share));
        lamp.Value(share > 0.3);
        // Another window uncovers a part, which is then painted before the rest.
        window.repaint(100, 0, 220, 140);
        EXPECT_TRUE(QTest::qWaitFor(showsItsPresentState)) << share;
    }
    window.setEnabled(false);
    EXPECT_TRUE(QTest::qWaitFor(showsItsPresentState));
}

TEST(CWButton, LightsUp) {
    CWButton lamp;
    const auto green = [&] { return Shot(lamp).pixelColor(lamp.rect().center()).green(); };
    lamp.resize(lamp.sizeHint());
    const int dark = green();
    lamp.Value(true);
    EXPECT_GT(green(), dark + 80);
    lamp.Value(false);
    EXPECT_EQ(green(), dark);
}

}  // namespace
}  // namespace orbkl4
