#include "platform/controls/house_style.h"

#include "platform/controls/cw_knob.h"
#include "platform/controls/cw_slide.h"
#include "platform/controls/text_field.h"

#include <QAccessible>
#include <QApplication>
#include <QPalette>
#include <QStyle>
#include <gtest/gtest.h>

namespace orbkl4 {
namespace {

TEST(Look, LetsAssistiveTechnologyReadTheControls) {
    ApplyHouseStyle();
    TextField field;
    field.Text("-179.9");
    CWKnob knob;
    knob.Value(270);
    CWSlide slide;
    slide.SetAxis({2, 25, 1, 0.5});
    const auto* text = QAccessible::queryAccessibleInterface(&field);
    EXPECT_EQ(text->text(QAccessible::Value), "-179.9");
    EXPECT_TRUE(text->state().readOnly);
    auto* dial = QAccessible::queryAccessibleInterface(&knob);
    EXPECT_EQ(dial->role(), QAccessible::Dial);
    EXPECT_EQ(dial->valueInterface()->currentValue().toDouble(), 270);
    EXPECT_EQ(dial->valueInterface()->maximumValue().toDouble(), 180);
    dial->valueInterface()->setCurrentValue(5.0);
    EXPECT_EQ(knob.Value(), 270);
    auto* hand = QAccessible::queryAccessibleInterface(&slide);
    hand->valueInterface()->setCurrentValue(3.0);
    EXPECT_EQ(slide.Value(), 0);
    slide.MakeInteractive(0.1);
    hand->valueInterface()->setCurrentValue(3.0);
    EXPECT_EQ(slide.Value(), 3);
}

TEST(Look, ShowsWhatIsDisabled) {
    ApplyHouseStyle();
    const QPalette palette = QApplication::palette();
    EXPECT_NE(palette.color(QPalette::Disabled, QPalette::Text),
              palette.color(QPalette::Active, QPalette::Text));
    EXPECT_NE(palette.color(QPalette::Disabled, QPalette::Base),
              palette.color(QPalette::Active, QPalette::Base));
}

}  // namespace
}  // namespace orbkl4
