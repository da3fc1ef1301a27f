#include "tour/itinerary.h"

#include "platform/windows/screen.h"
#include "platform/windows/screen_registry.h"
#include "tour/guide.h"

#include <string_view>

namespace orbkl4::tour {

namespace {

constexpr int glanceMilliseconds = 300;
constexpr int samplingMilliseconds = 2500;

struct ViewStop {
    const char* entry;             ///< in the main window's menus
    const char* name;              ///< of its pictures and its data file
    const char* sampleEntries[2];  ///< one or two channels
};

constexpr ViewStop viewStops[] = {
    {"mnuSensorBits", "sensor-bits", {"mnuSample", ""}},
    {"mnuVectors", "vectors", {"mnuSampleGyro", "mnuSampleInstant"}},
    {"mnuQuaternions", "quaternions", {"mnuSampleGyro", "mnuSampleInstant"}},
    {"mnuAngles", "angles", {"mnuSampleGyro", "mnuSampleInstant"}},
    {"mnuMatrices", "matrices", {"mnuSampleGyro", "mnuSampleInstant"}},
    {"mnuAnglesAccRate", "angles-acc-rate", {"mnuSample", ""}},
    {"mnuQuatVec", "quat-vec", {"mnuSampleGyro", "mnuSampleInstant"}},
};

/// A screen that is opened, made to do one thing, and left.
struct ToolStop {
    const char* entry;  ///< in the main window's menus
    const char* name;   ///< of its picture
    const char* act;    ///< the entry or button that sets it to work, empty for none
    const char* idle;   ///< the entry that is enabled when the work is done; empty: watch a moment
    const char* leave;  ///< the entry or button that leaves it
    int watchMilliseconds;
    void (*finally)(Guide& guide) = nullptr;  ///< what is done before it is left
};

void LookAtMatrix(Guide& guide) {
    guide.Choose("mnuViewMatrix");
    Guide::Watch(glanceMilliseconds);
    guide.TakePicture(QStringLiteral("view-matrix"));
    guide.Choose("mnuClose");
    Guide::Watch(glanceMilliseconds);
}

constexpr ToolStop toolStops[] = {
    {"mnuEEPROMmap", "eeprom-map", "mnuRead", "mnuRead", "mnuReturn", 0, LookAtMatrix},
    {"mnuGetVersionSerial", "version-serial", "", "", "cmdOK", 0},
    {"mnuGetTemperature", "temperature", "cmdGet", "", "cmdOK", 500},
    {"mnuHardIronCal", "hard-iron", "mnuCollect", "", "mnuReturn", 4000},
    {"mnuSetMode", "set-mode", "", "", "cmdCancel", 0},
    {"mnuSetWriteRate", "write-rate", "", "", "cmdCancel", 0},
    {"mnuAnalog", "analog", "", "mnuRead", "mnuReturn", 500},
    {"mnuGains", "gains", "", "mnuRead", "mnuReturn", 500},
    {"mnuVertical", "vertical", "", "mnuRead", "mnuReturn", 500},
    {"mnuSelfTest", "self-test", "mnuSample", "", "mnuReturn", 3000},
    {"mnuSetCalcCycle", "calc-cycle", "", "mnuRead", "mnuReturn", 500},
    {"mnuAbout", "about", "", "", "cmdOK", 0},
};

bool OnMain() { return ActiveScreenName() == "Main"; }

/// Chooses `name` where it is an entry, presses it where it is a button.
void Do(const Guide& guide, const char* name) {
    if (std::string_view(name).starts_with("cmd")) {
        guide.Press(name);
    } else {
        guide.Choose(name);
    }
}

void VisitChannel(Guide& guide, const char* entry, const QString& picture) {
    guide.Choose(entry);
    Guide::Watch(samplingMilliseconds);
    guide.TakePicture(picture);
    guide.Choose(entry);
}

void VisitView(Guide& guide, const ViewStop& stop, const QString& dataFolder) {
    const QString name = QLatin1String(stop.name);
    if (!guide.Choose(stop.entry) || OnMain()) return;
    Guide::Watch(glanceMilliseconds);
    guide.TakePicture(name + QStringLiteral("-stopped"));
    guide.SaveIn(dataFolder + QStringLiteral("/tour-") + name);
    guide.Choose("mnuSave");
    VisitChannel(guide, stop.sampleEntries[0], name);
    if (*stop.sampleEntries[1] != '\0') {
        VisitChannel(guide, stop.sampleEntries[1], name + QStringLiteral("-instant"));
    }
    guide.Choose("mnuReturn");
    Guide::Watch(glanceMilliseconds);
}

void VisitTool(Guide& guide, const ToolStop& stop) {
    if (!guide.Choose(stop.entry) || OnMain()) return;
    Guide::Watch(glanceMilliseconds);
    if (*stop.act != '\0') Do(guide, stop.act);
    constexpr int patienceSeconds = 60;
    Guide::Watch(stop.watchMilliseconds);
    if (*stop.idle != '\0') guide.WatchUntilEnabled(stop.idle, patienceSeconds);
    guide.TakePicture(QLatin1String(stop.name));
    if (stop.finally != nullptr) stop.finally(guide);
    Do(guide, stop.leave);
    Guide::Watch(glanceMilliseconds);
}

}  // namespace

bool VisitConnect(Guide& guide) {
    Guide::Watch(glanceMilliseconds);
    guide.TakePicture(QStringLiteral("main-unconnected"));
    guide.Choose("mnuConnect");
    Guide::Watch(glanceMilliseconds);
    for (const int tab : {2, 1, 0}) {
        constexpr const char* names[] = {"connect-auto", "connect-manual", "connect-reset"};
        guide.TurnTo("SSTab1", tab);
        guide.TakePicture(QLatin1String(names[tab]));
    }
    guide.PictureNextBox(QStringLiteral("connect-box"));
    guide.Press("cmdConnectAuto");
    Guide::Watch(glanceMilliseconds);
    guide.TakePicture(QStringLiteral("main"));
    const Screen* main = FindScreen("Main");
    return OnMain() && main->Menu("mnuDisplay").Enabled();
}

void VisitViews(Guide& guide, const QString& dataFolder) {
    for (const ViewStop& stop : viewStops) VisitView(guide, stop, dataFolder);
}

void VisitTools(Guide& guide) {
    for (const ToolStop& stop : toolStops) VisitTool(guide, stop);
}

}  // namespace orbkl4::tour
