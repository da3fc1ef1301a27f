#pragma once

#include <QString>

namespace orbkl4 {

/// What the desktop calls its appearance: the theme that the environment chooses in `GTK_THEME`,
/// else on GNOME its theme, colour scheme and "contrast" if that is to be high; empty where nobody
/// says. Waits at most a second for GNOME's settings.
QString DesktopNames();

}  // namespace orbkl4
