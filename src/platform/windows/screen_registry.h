#pragma once

#include <QStringList>

#include <string>

namespace orbkl4 {

class MdiFrame;
class Screen;

/// Makes a screen; it must have the name under which it is registered.
using ScreenMaker = Screen* (*)();

/// Makes the screen `name` known to the functions below.
void RegisterScreen(const char* name, ScreenMaker make);

/// The names of all registered screens, in alphabetical order.
QStringList RegisteredScreens();

/// The frame in and over which screens are shown from now on.
void PlaceScreensIn(MdiFrame* frame);

/// Shows the one instance of `name` inside the frame and makes it first if needed. Error 9 for a
/// name that isn't registered.
void ShowScreen(const char* name);

/// As `ShowScreen`, as a dialog over the frame that must be left first.
void ShowModalScreen(const char* name);

/// As `ShowScreen`, as a small window over the frame that doesn't become the active screen.
void ShowModelessScreen(const char* name);

/// The one instance of `name`, made and loaded if needed; error 9 for a name that isn't registered.
Screen* LoadScreen(const char* name);

/// The instance of `name`, null if it isn't loaded.
Screen* FindScreen(const char* name);

/// Takes `screen` out of the registry, closes its ports and stops its timers; it is destroyed when
/// no handler is on the stack. Does nothing if it has been unloaded already.
void UnloadScreen(Screen& screen);

/// Unloads every screen, the topmost first.
void UnloadAllScreens();

/// The program's topmost screen, null before the first is shown.
Screen* ActiveScreen();

/// The name of the topmost screen (UTF-8), empty before the first is shown.
std::string ActiveScreenName();

}  // namespace orbkl4
