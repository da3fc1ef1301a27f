#include "all_screens.h"

#include "acquire/screens/view_screen.h"
#include "frame/screens/about.h"
#include "frame/screens/main_window.h"
#include "frame/screens/version_serial.h"
#include "link/screens/connect.h"
#include "memory/screens/analog.h"
#include "memory/screens/eeprom_map.h"
#include "memory/screens/gains.h"
#include "memory/screens/view_matrix.h"
#include "platform/screen_registry.h"
#include "settings/screens/set_write_rate.h"

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
    {"Connect", Make<Connect>},
    {"EEPROMmap", Make<EEPROMmap>},
    {"Gains", Make<Gains>},
    {"Main", Make<Main>},
    {"Matrices", MakeView<views::matrices>},
    {"QuatVec", MakeView<views::quatVec>},
    {"Quaternions", MakeView<views::quaternions>},
    {"SensorBits", MakeView<views::sensorBits>},
    {"SetWriteRate", Make<SetWriteRate>},
    {"Vectors", MakeView<views::vectors>},
    {"VersionSerial", Make<VersionSerial>},
    {"ViewMatrix", Make<ViewMatrix>},
};

}  // namespace

void RegisterAllScreens() {
    for (const ScreenRow& row : screens) RegisterScreen(row.name, row.make);
}

}  // namespace orbkl4
