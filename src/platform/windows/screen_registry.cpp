#include "platform/windows/screen_registry.h"

#include "base/run_time_error.h"
#include "platform/events/event_gate.h"
#include "platform/events/mscomm.h"
#include "platform/events/timer.h"
#include "platform/windows/accessible_names.h"
#include "platform/windows/mdi_frame.h"
#include "platform/windows/screen.h"

#include <QHash>
#include <QPointer>

namespace orbkl4 {

namespace {

struct Registry {
    QHash<QString, ScreenMaker> makers;
    QHash<QString, Screen*> loaded;
    QList<Screen*> shown;  // children and dialogs, the topmost last
    QPointer<MdiFrame> frame;
};

Registry& TheRegistry() {
    static Registry registry;
    return registry;
}

void ActivateLater(Screen* screen) {
    QMetaObject::invokeMethod(
        screen,
        [screen] {
            if (TheRegistry().loaded.value(screen->objectName()) == screen) {
                screen->Form_Activate();
            }
        },
        Qt::QueuedConnection);
}

/// Shows the screen by `place` unless it is on show already.
template <typename Place>
void Show(const char* name, Place place) {
    Screen* screen = LoadScreen(name);
    if (screen->isVisible()) return;
    place(*screen);
    ActivateLater(screen);
}

void StopControls(const Screen& screen) {
    for (Timer* timer : screen.findChildren<Timer*>()) timer->Enabled(false);
    for (MSComm* port : screen.findChildren<MSComm*>()) port->PortOpen(false);
}

}  // namespace

void RegisterScreen(const char* name, ScreenMaker make) {
    TheRegistry().makers.insert(QString::fromUtf8(name), make);
}

QStringList RegisteredScreens() {
    QStringList names = TheRegistry().makers.keys();
    names.sort();
    return names;
}

void PlaceScreensIn(MdiFrame* frame) { TheRegistry().frame = frame; }

Screen* LoadScreen(const char* name) {
    Registry& registry = TheRegistry();
    const QString key = QString::fromUtf8(name);
    if (Screen* loaded = registry.loaded.value(key)) return loaded;
    const ScreenMaker make = registry.makers.value(key);
    if (make == nullptr) {
        Raise(ErrorNumber::SubscriptOutOfRange,
              std::string("There is no screen named \"") + name + "\"");
    }
    Screen* screen = make();
    CompleteNames(*screen);
    registry.loaded.insert(key, screen);
    screen->Form_Load();
    return screen;
}

void ShowScreen(const char* name) {
    Show(name, [](Screen& screen) {
        TheRegistry().shown += &screen;
        TheRegistry().frame->ShowChild(screen);
    });
}

void ShowModalScreen(const char* name) {
    Show(name, [](Screen& screen) {
        TheRegistry().shown += &screen;
        TheRegistry().frame->ShowDialog(screen);
    });
}

void ShowModelessScreen(const char* name) {
    Show(name, [](Screen& screen) { TheRegistry().frame->ShowModeless(screen); });
}

Screen* FindScreen(const char* name) { return TheRegistry().loaded.value(QString::fromUtf8(name)); }

void UnloadScreen(Screen& screen) {
    Registry& registry = TheRegistry();
    if (registry.loaded.value(screen.objectName()) != &screen) return;
    registry.loaded.remove(screen.objectName());
    registry.shown.removeAll(&screen);
    StopControls(screen);
    screen.hide();
    if (registry.frame) registry.frame->Remove(screen);
    EventGate::Instance().DestroyLater(&screen);
}

void UnloadAllScreens() {
    Registry& registry = TheRegistry();
    while (!registry.shown.isEmpty()) UnloadScreen(*registry.shown.constLast());
    for (Screen* screen : registry.loaded.values()) UnloadScreen(*screen);
}

Screen* ActiveScreen() {
    const auto& shown = TheRegistry().shown;
    return shown.isEmpty() ? nullptr : shown.constLast();
}

std::string ActiveScreenName() {
    const Screen* active = ActiveScreen();
    return active == nullptr ? std::string() : active->objectName().toStdString();
}

}  // namespace orbkl4
