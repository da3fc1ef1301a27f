#include "platform/windows/mdi_frame.h"

#include "base/run_time_error.h"
#include "platform/windows/screen.h"
#include "platform/windows/screen_registry.h"
#include "support/wait.h"

#include <QApplication>
#include <QLabel>
#include <gtest/gtest.h>

namespace orbkl4::test {

class MdiFrameTest : public testing::Test {
  protected:
    MdiFrameTest() {
        RegisterScreen("Lower", [] { return new Screen("Lower", "Below"); });
        RegisterScreen("Upper", [] { return new Screen("Upper", "Above"); });
        PlaceScreensIn(&frame);
        frame.show();
    }
    ~MdiFrameTest() override {
        UnloadAllScreens();
        PlaceScreensIn(nullptr);
    }

    /// Shows `name` and returns it.
    static Screen& Show(const char* name) {
        ShowScreen(name);
        return *FindScreen(name);
    }

    void Resize(QSize size) {
        frame.resize(size);
        WaitFor([&] { return frame.size() == size; });
        QCoreApplication::processEvents();
    }

    MdiFrame frame{"MDIForm1", "Frame"};
};

TEST_F(MdiFrameTest, ScreensFillItAndTheirTypeGrowsWithIt) {
    const double usual = QApplication::font().pointSizeF();
    Screen& lower = Show("Lower");
    Screen& upper = Show("Upper");
    for (const auto& [size, growth] :
         {std::pair{QSize(1240, 760), 1.0}, std::pair{QSize(1900, 1140), 1.5},
          std::pair{QSize(3800, 2280), 2.0}, std::pair{QSize(960, 600), 1.0}}) {
        Resize(size);
        EXPECT_EQ(upper.size(), upper.parentWidget()->size());
        EXPECT_EQ(upper.width(), size.width());
        EXPECT_NEAR(upper.font().pointSizeF() / usual, growth, 0.06) << size.width();
    }
    Resize({1900, 1140});
    EXPECT_FALSE(lower.isVisible()) << "one at a time";
    upper.Unload();
    EXPECT_TRUE(lower.isVisible());
    EXPECT_EQ(lower.size(), lower.parentWidget()->size());
    EXPECT_EQ(lower.width(), 1900);
    EXPECT_GT(lower.font().pointSizeF(), 1.4 * usual);
    EXPECT_EQ(frame.findChild<QLabel*>(QStringLiteral("lblHeading"))->text(), "Below");
}

TEST_F(MdiFrameTest, AScreenThatIsNotRegisteredIsAnError) {
    for (const auto show : {ShowScreen, ShowModalScreen, ShowModelessScreen}) {
        try {
            show("Missing");
            ADD_FAILURE() << "shown";
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number(), ErrorNumber::SubscriptOutOfRange);
            EXPECT_STREQ(error.what(), "There is no screen named \"Missing\"");
        }
    }
}

}  // namespace orbkl4::test
