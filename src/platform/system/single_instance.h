#pragma once

namespace orbkl4 {

/// Makes this process the user's only instance of the program; false if another one is running. The
/// lock of a killed process doesn't count.
bool ClaimSingleInstance();

}  // namespace orbkl4
