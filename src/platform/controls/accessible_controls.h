#pragma once

namespace orbkl4 {

/// Lets assistive technology tell what screens and painted controls are, read the controls' values,
/// and set them where the user can; a second call changes nothing.
void InstallAccessibleControls();

}  // namespace orbkl4
