#pragma once

namespace orbkl4 {

/// Lets assistive technology read (and, where a person may set it, set) the text or value of the
/// painted controls; a second call changes nothing.
void InstallAccessibleControls();

}  // namespace orbkl4
