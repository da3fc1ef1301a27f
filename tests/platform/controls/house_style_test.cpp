#include "platform/controls/house_style.h"

#include "platform/controls/cw_knob.h"
#include "platform/controls/cw_slide.h"
#include "platform/controls/text_field.h"

#include <QAccessible>
#include <gtest/gtest.h>

namespace orbkl4 {
namespace {

TEST(HouseStyle, LetsAssistiveTechnologyReadTheControls) {
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
    auto* slider = QAccessible::queryAccessibleInterface(&slide);
    slider->valueInterface()->setCurrentValue(3.0);
    EXPECT_EQ(slide.Value(), 0);
    slide.MakeInteractive(0.1);
    slider->valueInterface()->setCurrentValue(3.0);
    EXPECT_EQ(slide.Value(), 3);
}

}  // namespace
}  // namespace orbkl4
