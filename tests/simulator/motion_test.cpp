#include "simulator/motion.h"

#include "simulator/temporary_folder.h"

#include <gtest/gtest.h>

#include <numbers>
#include <stdexcept>
#include <utility>

namespace orbkl4sim {
namespace {

using namespace std::chrono_literals;

constexpr double kRadians = std::numbers::pi / 180;

TEST(Motion, InterpolatesARecordingInALoop) {
    const TemporaryFolder folder;
    // From 170 to 200 degrees in one second, and to 140 in two.
    const Motion angles = ReadMotion(folder.Write(
        "angles.csv",
        "# by hand\n\ntime,roll,pitch,yaw\r\n10, 0,0,170\r\n11,0,0,200\n13,0,0,140\n"));
    struct Row {
        Time time;
        double yaw;
        double rate;  // degrees a second about Z
    };
    for (const Row& row : {Row{0s, 170, 30}, Row{500ms, -175, 30}, Row{1500ms, -175, -30},
                           Row{2500ms, 155, -30}, Row{3500ms, -175, 30}, Row{30500ms, -175, 30}}) {
        const Pose pose = angles(row.time);
        EXPECT_NEAR(row.yaw, ToEuler(pose.attitude).yaw, 1e-9) << row.time.count();
        EXPECT_NEAR(row.rate * kRadians, pose.rate.z, 1e-9) << row.time.count();
        EXPECT_NEAR(0, pose.rate.x, 1e-9);
    }
    // A quarter turn about X, from a quaternion to one of opposite sign and other length.
    const Motion quaternion =
        ReadMotion(folder.Write("quaternion.csv", "time,q0,q1,q2,q3\n0,1,0,0,0\n1,-2,-2,0,0\n"));
    EXPECT_NEAR(45, ToEuler(quaternion(500ms).attitude).roll, 1e-9);
    EXPECT_NEAR(90 * kRadians, quaternion(500ms).rate.x, 1e-9);

    const Motion still = ReadMotion(folder.Write("still.csv", "time,roll,pitch,yaw\n5,1,2,3\n"));
    EXPECT_NEAR(2, ToEuler(still(77s).attitude).pitch, 1e-9);
    EXPECT_EQ(0, Length(still(77s).rate));
}

TEST(Motion, TheSuppliedRecordingTurnsOnce) {
    const Motion motion = ParseMotion("file " MOTION_FOLDER "/hand_turn.csv");
    EXPECT_NEAR(90, ToEuler(motion(5s).attitude).yaw, 0.01);
    EXPECT_NEAR(0, ToEuler(motion(20s).attitude).yaw, 0.01);
}

TEST(Motion, ReportsABadRecording) {
    const std::pair<const char*, const char*> rows[] = {
        {"time,roll,pitch,yaw\n", ": contains no motion"},
        {"time;roll;pitch;yaw\n0;0;0;0\n", ", line 1: the header must be"},
        {"time,roll,pitch,yaw\n0,1,2\n", ", line 2: not 4 numbers"},
        {"time,roll,pitch,yaw\n0,1,2,3,4\n", ", line 2: not 4 numbers"},
        {"time,roll,pitch,yaw\n0,1,2,3x\n", ", line 2: not 4 numbers"},
        {"time,q0,q1,q2,q3\n\n0,1,0,0\n", ", line 3: not 5 numbers"},
        {"time,roll,pitch,yaw\n0,1,2,3\n1,1,2,3\n1,1,2,3\n",
         ", line 4: the time does not increase"},
    };
    const TemporaryFolder folder;
    for (const auto& [text, problem] : rows) {
        const auto file = folder.Write("bad.csv", text);
        const std::string error = ErrorOf([&] { ReadMotion(file); });
        EXPECT_TRUE(error.starts_with(file.string() + problem)) << text << error;
    }
    EXPECT_THROW(ReadMotion(folder / "missing.csv"), std::runtime_error);
}

}  // namespace
}  // namespace orbkl4sim
