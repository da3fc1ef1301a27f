#include "all_screens.h"

#include "frame/screens/about.h"
#include "frame/screens/main_window.h"
#include "frame/screens/version_serial.h"
#include "platform/screen_registry.h"

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
    {"Main", Make<Main>},
    {"VersionSerial", Make<VersionSerial>},
};

}  // namespace

void RegisterAllScreens() {
    for (const ScreenRow& row : screens) RegisterScreen(row.name, row.make);
}

}  // namespace orbkl4
