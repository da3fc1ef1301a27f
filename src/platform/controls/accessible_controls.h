#pragma once

namespace orbkl4 {

/// Lets assistive technology read the value of the painted controls, and set it where the user can;
/// a second call changes nothing.
void InstallAccessibleControls();

}  // namespace orbkl4
