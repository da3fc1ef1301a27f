#include "platform/controls/house_style.h"

#include "platform/controls/cw_button.h"
#include "platform/controls/cw_knob.h"
#include "platform/controls/cw_slide.h"
#include "platform/controls/text_field.h"

#include <QAccessible>
#include <QCheckBox>
#include <QRadioButton>
#include <QStyle>
#include <gtest/gtest.h>

#include <initializer_list>
#include <vector>

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

TEST(HouseStyle, MarksAndLampsGrowWithTheTypeBesideThem) {
    ApplyHouseStyle();
    QCheckBox check;
    QRadioButton radio;
    CWButton lamp;
    CWSlide slide;
    const auto sides = [&] {
        return std::vector{
            check.style()->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, &check),
            check.style()->pixelMetric(QStyle::PM_ExclusiveIndicatorHeight, nullptr, &radio),
            lamp.sizeHint().width(), slide.sizeHint().width()};
    };
    const std::vector<int> usual = sides();
    EXPECT_EQ(usual[0], 14) << "as without the style";
    for (QWidget* widget : std::initializer_list<QWidget*>{&check, &radio, &lamp, &slide}) {
        QFont font = widget->font();
        font.setPointSizeF(font.pointSizeF() * 2);
        widget->setFont(font);
    }
    const std::vector<int> grown = sides();
    for (std::size_t i = 0; i < grown.size(); ++i)
        EXPECT_NEAR(static_cast<double>(grown[i]) / usual[i], 2, 0.15) << i;
}

}  // namespace
}  // namespace orbkl4
