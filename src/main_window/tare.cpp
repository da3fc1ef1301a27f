#include "main_window/tare.h"

#include "calibrate/logic/tare.h"
#include "link/communication.h"
#include "platform/events/mscomm.h"
#include "platform/events/timer.h"
#include "platform/windows/boxes.h"
#include "platform/windows/screen.h"
#include "platform/windows/screen_registry.h"
#include "state/app_state.h"

#include <QGroupBox>
#include <QProgressBar>

#include <array>
#include <string_view>

namespace orbkl4 {

namespace {

constexpr const char* progress = "Progress";
constexpr std::string_view calcCycleEntry = "mnuSetCalcCycle";

/// The entries that are disabled while an operation runs, in order; null is the entry of the other
/// operation.
constexpr auto disabledEntries = std::to_array<const char*>({
    "mnuConnect",
    "mnuDisplay",
    "mnuHelp",
    "mnuEEPROMmap",
    "mnuSetWriteRate",
    "mnuSetMode",
    "mnuGetTemperature",
    "mnuGetVersionSerial",
    "mnuAnalog",
    "mnuHardIronCal",
    nullptr,
    "mnuGains",
    "mnuVertical",
    "mnuSelfTest",
    "mnuSetCalcCycle",
});

template <typename Visit>
void ForEachEntry(const Screen& main, const TareOperation& operation, const Visit& visit) {
    for (const char* name : disabledEntries)
        visit(main.Menu(name != nullptr ? name : operation.otherEntry));
}

template <typename Control>
Control& Find(const Screen& screen, const char* name) {
    return *screen.findChild<Control*>(QLatin1String(name));
}

MSComm& PortOf(const Screen& main) { return Find<MSComm>(main, "MSComm1"); }

void Start(const Screen& main, const TareOperation& operation) {
    MSComm& port = PortOf(main);
    main.Menu(operation.entry).Checked(true);
    ForEachEntry(main, operation, [](MenuEntry& entry) { entry.Enabled(false); });
    ShowModelessScreen(progress);
    if (*operation.caption != '\0') {
        Find<QGroupBox>(*LoadScreen(progress), "fraPB")
            .setTitle(QString::fromUtf8(operation.caption));
    }
    OpenCommPort(port, main);
    port.Input(AppState.CommandBytes);  // discards stale bytes
    Send(port, operation.command);
    Find<Timer>(main, operation.timer).Enabled(true);
}

/// The first steps of both a stop and a success.
void End(const Screen& main, const TareOperation& operation) {
    Find<Timer>(main, operation.timer).Enabled(false);
    CloseCommPort(PortOf(main), main);
    main.Menu(operation.entry).Checked(false);
}

void UnloadProgress() { LoadScreen(progress)->Unload(); }

void Stop(const Screen& main, const TareOperation& operation) {
    End(main, operation);
    ForEachEntry(main, operation, [](MenuEntry& entry) { entry.Enabled(true); });
    UnloadProgress();
    ShowMessage(operation.stopped);
}

void Succeed(const Screen& main, const TareOperation& operation) {
    End(main, operation);
    ForEachEntry(main, operation, [&](MenuEntry& entry) {
        const bool onlyShown =
            !operation.enablesCalcCycle && entry.objectName() == QLatin1String(calcCycleEntry);
        if (onlyShown) {
            entry.Visible(true);
        } else {
            entry.Enabled(true);
        }
    });
    UnloadProgress();
    ShowMessage(operation.succeeded);
}

/// Moves the bar through 1 to 9 in turn.
void MoveBar() {
    constexpr int turn = 10;
    auto& bar = Find<QProgressBar>(*LoadScreen(progress), "PBar");
    const int next = bar.value() + 1;
    bar.setValue(next == turn ? 1 : next);
}

}  // namespace

void ToggleTare(const Screen& main, const TareOperation& operation) {
    if (main.Menu(operation.entry).Checked()) {
        Stop(main, operation);
    } else {
        Start(main, operation);
    }
}

void TareTick(const Screen& main, const TareOperation& operation) {
    PortOf(main).Input(AppState.CommandBytes);
    if (IsTareReply(AppState.CommandBytes, operation.command)) {
        Succeed(main, operation);
    } else {
        MoveBar();
    }
}

}  // namespace orbkl4
