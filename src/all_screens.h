#pragma once

namespace orbkl4 {

/// Makes every screen of the program known to the registry under its name.
void RegisterAllScreens();

}  // namespace orbkl4
