#include "memory/screens/map_fixture.h"
#include "platform/screen_registry.h"
#include "support/wait.h"

#include <QAbstractButton>
#include <gtest/gtest.h>

namespace orbkl4::test {

using MatrixViewer = MapTest;

TEST_F(MatrixViewer, ShowsTheFieldsOfTheMapAsTheyStand) {
    const int bases[] = {102, 66, 84, 178, 136, 154};
    const char* names[] = {"Accelerometer Orthogonality Matrix",
                           "Magnetometer Orthogonality Matrix",
                           "Gyroscope Orthogonality Matrix",
                           "Gyro Acceleration Sensitivity Matrix",
                           "Tare Matrix",
                           "Iron Calibration Matrix"};
    for (int address = 66; address <= 194; address += 2) Field(address).Value(-address);
    Click(*map, "mnuViewMatrix");
    const Screen& viewer = *FindScreen("ViewMatrix");
    EXPECT_TRUE(viewer.isVisible() && viewer.isWindow());
    EXPECT_TRUE(Get<QAbstractButton>(viewer, "Option1").isChecked());
    // Begins with the choice that stands, and takes it up again at the end.
    for (const int option : {0, 1, 2, 3, 4, 5, 0}) {
        Get<QAbstractButton>(viewer, ("Option" + std::to_string(option + 1)).c_str()).click();
        EXPECT_EQ(Property(viewer, "fraMatrix", "title"), names[option]);
        for (int k = 0; k < 9; ++k) {
            EXPECT_EQ(Text(viewer, ("txtMatrix(" + std::to_string(k + 1) + ")").c_str()),
                      std::to_string(-(bases[option] + 2 * k)))
                << names[option];
        }
    }
    const auto placeOf = [&](const char* name) { return Get<QWidget>(viewer, name).pos(); };
    EXPECT_EQ(placeOf("txtMatrix(7)").y(), placeOf("txtMatrix(1)").y());
    EXPECT_GT(placeOf("lblM13").x(), placeOf("txtMatrix(4)").x());
    EXPECT_LT(placeOf("lblM13").x(), placeOf("txtMatrix(7)").x());
    Click(viewer, "mnuClose");
    EXPECT_EQ(FindScreen("ViewMatrix"), nullptr);
    EXPECT_EQ(ActiveScreenName(), "EEPROMmap");
}

}  // namespace orbkl4::test
