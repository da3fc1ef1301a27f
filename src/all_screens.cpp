#include "all_screens.h"

#include "acquire/screens/view_screen.h"
#include "calibrate/screens/hard_iron_cal.h"
#include "calibrate/screens/self_test.h"
#include "link/screens/connect.h"
#include "main_window/screens/about.h"
#include "main_window/screens/main_window.h"
#include "main_window/screens/progress.h"
#include "main_window/screens/version_serial.h"
#include "memory/screens/analog.h"
#include "memory/screens/eeprom_map.h"
#include "memory/screens/gains.h"
#include "memory/screens/view_matrix.h"
#include "platform/windows/screen_registry.h"
#include "settings/screens/calc_cycle.h"
#include "settings/screens/get_temperature.h"
#include "settings/screens/set_mode.h"
#include "settings/screens/set_write_rate.h"
#include "settings/screens/vertical.h"

namespace orbkl4 {

namespace {

template <typename Kind>
Screen* Make() {
    return new Kind;
}

struct ScreenRow {
    const char* name;
    ScreenMaker make;
};

constexpr ScreenRow screens[] = {
    {"About", Make<About>},
    {"Analog", Make<Analog>},
    {"Angles", MakeView<views::angles>},
    {"AnglesAccRate", MakeView<views::anglesAccRate>},
    {"CalcCycle", Make<CalcCycle>},
    {"Connect", Make<Connect>},
    {"EEPROMmap", Make<EEPROMmap>},
    {"Gains", Make<Gains>},
    {"GetTemperature", Make<GetTemperature>},
    {"HardIronCal", Make<HardIronCal>},
    {"Main", Make<Main>},
    {"Matrices", MakeView<views::matrices>},
    {"Progress", Make<Progress>},
    {"QuatVec", MakeView<views::quatVec>},
    {"Quaternions", MakeView<views::quaternions>},
    {"SelfTest", Make<SelfTest>},
    {"SensorBits", MakeView<views::sensorBits>},
    {"SetMode", Make<SetMode>},
    {"SetWriteRate", Make<SetWriteRate>},
    {"Vectors", MakeView<views::vectors>},
    {"VersionSerial", Make<VersionSerial>},
    {"Vertical", Make<Vertical>},
    {"ViewMatrix", Make<ViewMatrix>},
};

}  // namespace

void RegisterAllScreens() {
    for (const ScreenRow& row : screens) RegisterScreen(row.name, row.make);
}

}  // namespace orbkl4
