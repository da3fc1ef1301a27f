#include "platform/windows/font_following.h"

#include "platform/controls/house_style.h"

#include <QGroupBox>
#include <gtest/gtest.h>

namespace orbkl4 {
namespace {

TEST(FontFollowing, KeepsALampBesideACaptionThatGrows) {
    ApplyHouseStyle();
    QGroupBox frame(QStringLiteral("Magnetometer"));
    QWidget lamp(&frame);
    KeepBesideCaption(frame, lamp);
    for (const int points : {10, 20}) {
        QFont font = frame.font();
        font.setPointSize(points);
        frame.setFont(font);
        const QFontMetrics metrics(font);
        EXPECT_NEAR(lamp.height(), metrics.height(), 3) << points;
        EXPECT_GT(lamp.x(), metrics.horizontalAdvance(frame.title())) << points;
        EXPECT_LT(lamp.x(), 1.5 * metrics.horizontalAdvance(frame.title())) << points;
    }
}

}  // namespace
}  // namespace orbkl4
