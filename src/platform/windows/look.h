#pragma once

#include <QString>

#include <cstdint>

class QPalette;

namespace orbkl4 {

/// The colour schemes of the program.
enum class Look : std::uint8_t { Light, Dark, ContrastLight, ContrastDark };

/// The scheme in use, `Light` at first.
Look CurrentLook();

/// Chooses the scheme, before the first window is made.
void UseLook(Look look);

/// Whether `look` is one of high contrast.
bool IsContrast(Look look);

/// The scheme that suits a desktop: dark where the text of its `palette` is lighter than the
/// window, of high contrast where they are black and white; or as `names`, the names of its themes
/// and settings, has "dark", "inverse" or "contrast" in it.
Look LookOf(const QPalette& palette, const QString& names);

/// The scheme that suits the desktop on which the program runs. Asks Qt before the program's own
/// palette is set.
Look DesktopLook();

}  // namespace orbkl4
