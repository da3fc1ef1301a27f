#include "platform/controls/house_style.h"
#include "platform/windows/screen_registry.h"
#include "support/screens/screen_fixture.h"
#include "support/wait.h"

#include <QApplication>
#include <QLayout>

namespace orbkl4::test {

namespace {

class Sizes : public ScreenTest {
  protected:
    static void SetUpTestSuite() { ApplyHouseStyle(); }  // before there is a frame
};

constexpr const char* children[] = {"Main",        "SensorBits", "Vectors",       "Quaternions",
                                    "Angles",      "Matrices",   "AnglesAccRate", "QuatVec",
                                    "EEPROMmap",   "Gains",      "Analog",        "Vertical",
                                    "HardIronCal", "SelfTest",   "CalcCycle"};

/// The least size of `screen` in its present font. Only layouts are brought up to date, so that no
/// handler of the screen runs.
QSize LeastSize(const Screen& screen) {
    constexpr int nestedLayouts = 5;
    for (int i = 0; i < nestedLayouts; ++i)
        QApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    return screen.layout()->minimumSize();
}

}  // namespace

TEST_F(Sizes, NoScreenIsCutInAWindowOfAnySize) {
    frame.show();
    for (const QSize& window :
         {QSize(960, 600), QSize(1024, 652), QSize(1090, 900), QSize(1240, 760), QSize(1366, 720),
          QSize(1500, 640), QSize(1904, 1032), QSize(3840, 1080)}) {
        frame.resize(window);
        ASSERT_TRUE(WaitFor([&] { return frame.size() == window; }));
        for (const char* name : children) {
            ShowScreen(name);
            Screen& screen = *FindScreen(name);
            const QSize least = LeastSize(screen);
            EXPECT_LE(least.width(), screen.width()) << name << " at " << window.width();
            EXPECT_LE(least.height(), screen.height()) << name << " at " << window.height();
            if (&screen != FindScreen("Main")) UnloadScreen(screen);
        }
    }
}

}  // namespace orbkl4::test
