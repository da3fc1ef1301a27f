#include "platform/controls/house_style.h"

#include "platform/controls/cw_button.h"
#include "platform/controls/cw_slide.h"

#include <QAccessible>
#include <QCheckBox>
#include <QRadioButton>
#include <QStyle>
#include <gtest/gtest.h>

#include <initializer_list>
#include <vector>

namespace orbkl4 {
namespace {

TEST(HouseStyle, LetsAssistiveTechnologySetWhatAUserCan) {
    ApplyHouseStyle();
    CWSlide slide;
    slide.SetAxis({2, 25, 1, 0.5});
    auto* slider = QAccessible::queryAccessibleInterface(&slide)->valueInterface();
    EXPECT_EQ(slider->maximumValue().toDouble(), 25);
    slider->setCurrentValue(3.0);
    EXPECT_EQ(slide.Value(), 0);
    slide.MakeInteractive(0.1);
    slider->setCurrentValue(3.0);
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
