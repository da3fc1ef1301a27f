#include "acquire/screens/view_fixture.h"

#include <cstdlib>

namespace orbkl4::test {

namespace {

class OneAttitude : public ViewTest {
  protected:
    OneAttitude()
        : ViewTest(orbkl4sim::SimulatorOptions{
              .motion = orbkl4sim::Rest({25, -40, -130}), .noise = false, .paced = false}) {}

    /// Samples until the first of `fields` shows something, and compares all of them.
    void Expect(const char* view, const char* entry, const std::string& fields,
                const std::vector<double>& numbers, double tolerance) {
        SCOPED_TRACE(testing::Message() << view << ' ' << entry);
        Screen& screen = Open(view);
        const auto names = Split(fields);
        ASSERT_EQ(names.size(), numbers.size());
        Click(screen, entry);
        const auto number = [&](std::size_t i) {
            return std::strtod(Text(screen, names[i].c_str()).c_str(), nullptr);
        };
        EXPECT_TRUE(WaitFor([&] { return number(0) != 0; }));
        for (std::size_t i = 0; i < names.size(); ++i)
            EXPECT_NEAR(number(i), numbers[i], tolerance) << names[i];
        screen.Unload();
    }
};

}  // namespace

TEST_F(OneAttitude, IsTheSameInEveryView) {
    const std::string angles = "txtRoll txtPitch txtYaw";
    Expect("Angles", "mnuSampleGyro", angles, {25, -40, -130}, 0.11);
    Expect("Angles", "mnuSampleInstant", angles, {25, -40, -130}, 0.11);
    Expect("AnglesAccRate", "mnuSample", angles, {25, -40, 230}, 0.11);
    // The product of the three turns by half angles.
    const std::vector<double> quaternion{0.45481, -0.21667, -0.32545, -0.80018};
    for (const char* view : {"Quaternions", "QuatVec"}) {
        Expect(view, "mnuSampleGyro", "txtStabQuat0 txtStabQuat1 txtStabQuat2 txtStabQuat3",
               quaternion, 0.0002);
        Expect(view, "mnuSampleInstant", "txtQuat0 txtQuat1 txtQuat2 txtQuat3", quaternion, 0.0002);
    }
    // Column by column, each a body axis in the frame of the earth; M31 is minus the pitch's sine.
    const std::vector<double> matrix{-0.4924, -0.5868, 0.6428, 0.8689, -0.3745,
                                     0.3237,  0.0507,  0.7179, 0.6943};
    Expect("Matrices", "mnuSampleGyro",
           "txtS11 txtS21 txtS31 txtS12 txtS22 txtS32 txtS13 txtS23 txtS33", matrix, 0.0005);
    Expect("Matrices", "mnuSampleInstant", "txt11 txt21 txt31 txt12 txt22 txt32 txt13 txt23 txt33",
           matrix, 0.0005);
}

}  // namespace orbkl4::test
