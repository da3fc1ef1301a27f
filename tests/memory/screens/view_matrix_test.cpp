#include "memory/screens/map_fixture.h"
#include "platform/windows/screen_registry.h"
#include "support/wait.h"

#include <QAbstractButton>
#include <gtest/gtest.h>

namespace orbkl4::test {

using MatrixViewer = MapTest;

TEST_F(MatrixViewer, ShowsTheFieldsOfTheMapAsTheyStand) {
    const std::pair<const char*, int> matrices[] = {{"Accelerometer Orthogonality Matrix", 102},
                                                    {"Magnetometer Orthogonality Matrix", 66},
                                                    {"Gyroscope Orthogonality Matrix", 84},
                                                    {"Gyro Acceleration Sensitivity Matrix", 178},
                                                    {"Tare Matrix", 136},
                                                    {"Iron Calibration Matrix", 154}};
    for (int address = 66; address <= 194; address += 2) Field(address).Value(-address);
    Click(*screen, "mnuViewMatrix");
    const Screen& viewer = *FindScreen("ViewMatrix");
    EXPECT_TRUE(viewer.isVisible() && viewer.isWindow());
    EXPECT_TRUE(Get<QAbstractButton>(viewer, "Option1").isChecked());
    // Begins with the choice that stands, and takes it up again at the end.
    for (const int option : {0, 1, 2, 3, 4, 5, 0}) {
        Get<QAbstractButton>(viewer, ("Option" + std::to_string(option + 1)).c_str()).click();
        const auto& [name, base] = matrices[option];
        EXPECT_EQ(Property(viewer, "fraMatrix", "title"), name);
        for (int k = 0; k < 9; ++k) {
            const std::string field = "txtMatrix(" + std::to_string(k + 1) + ")";
            EXPECT_EQ(Text(viewer, field.c_str()), std::to_string(-(base + 2 * k))) << name;
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
