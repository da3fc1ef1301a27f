#include "simulator/motion.h"
#include "support/screens/screen_fixture.h"
#include "support/wait.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdlib>
#include <numbers>
#include <string>

namespace orbkl4::test {

namespace {

constexpr double degree = std::numbers::pi / 180;
constexpr double roll = 25;
constexpr double pitch = -40;
constexpr double yaw = -130;

orbkl4sim::SimulatorOptions Tilted() {
    orbkl4sim::SimulatorOptions options = QuietSensor();
    options.motion = orbkl4sim::Rest({roll, pitch, yaw});
    return options;
}

class OneAttitude : public ScreenTest {
  protected:
    OneAttitude() : ScreenTest(Tilted()) {}

    /// Runs `entry` on the view until `field` shows something, and leaves it running.
    Screen& Run(const char* view, const char* entry, const char* field) {
        Screen& screen = Open(view);
        Click(screen, entry);
        const auto shown = [&] { return Number(screen, field) != 0; };
        EXPECT_TRUE(WaitFor(shown)) << view;
        return screen;
    }

    static double Number(const Screen& screen, const std::string& field) {
        return std::strtod(Text(screen, field.c_str()).c_str(), nullptr);
    }

    void ExpectQuaternion(const char* view, const char* entry, const std::string& field) {
        Screen& screen = Run(view, entry, (field + "0").c_str());
        // Half angles, worked out from the attitude above by the product of the three turns.
        const double cr = std::cos(roll / 2 * degree), sr = std::sin(roll / 2 * degree);
        const double cp = std::cos(pitch / 2 * degree), sp = std::sin(pitch / 2 * degree);
        const double cy = std::cos(yaw / 2 * degree), sy = std::sin(yaw / 2 * degree);
        const std::array expected{cr * cp * cy + sr * sp * sy, sr * cp * cy - cr * sp * sy,
                                  cr * sp * cy + sr * cp * sy, cr * cp * sy - sr * sp * cy};
        for (std::size_t i = 0; i < expected.size(); ++i) {
            EXPECT_NEAR(Number(screen, field + std::to_string(i)), expected.at(i), 0.0002)
                << view << " " << field << i;
        }
        screen.Unload();
    }

    void ExpectAngles(const char* view, const char* entry, double expectedYaw) {
        Screen& screen = Run(view, entry, "txtRoll");
        EXPECT_NEAR(Number(screen, "txtRoll"), roll, 0.11) << view;
        EXPECT_NEAR(Number(screen, "txtPitch"), pitch, 0.11) << view;
        EXPECT_NEAR(Number(screen, "txtYaw"), expectedYaw, 0.11) << view;
        screen.Unload();
    }

    /// The nine fields hold a turn by the attitude: `M31` is minus the sine of the pitch, and the
    /// other angles follow from its row and column.
    void ExpectMatrix(const char* entry, const std::string& prefix) {
        Screen& screen = Run("Matrices", entry, (prefix + "11").c_str());
        const auto element = [&](const char* place) { return Number(screen, prefix + place); };
        EXPECT_NEAR(std::asin(-element("31")) / degree, pitch, 0.05) << entry;
        EXPECT_NEAR(std::atan2(element("32"), element("33")) / degree, roll, 0.05) << entry;
        EXPECT_NEAR(std::atan2(element("21"), element("11")) / degree, yaw, 0.05) << entry;
        screen.Unload();
    }
};

}  // namespace

TEST_F(OneAttitude, IsTheSameInEveryView) {
    ExpectAngles("Angles", "mnuSampleGyro", yaw);
    ExpectAngles("Angles", "mnuSampleInstant", yaw);
    ExpectAngles("AnglesAccRate", "mnuSample", yaw + 360);
    ExpectQuaternion("Quaternions", "mnuSampleGyro", "txtStabQuat");
    ExpectQuaternion("Quaternions", "mnuSampleInstant", "txtQuat");
    ExpectQuaternion("QuatVec", "mnuSampleGyro", "txtStabQuat");
    ExpectQuaternion("QuatVec", "mnuSampleInstant", "txtQuat");
    ExpectMatrix("mnuSampleGyro", "txtS");
    ExpectMatrix("mnuSampleInstant", "txt");
}

}  // namespace orbkl4::test
