#pragma once

namespace orbkl4 {

/// Claims the program for this process until its end; false where another running process of the
/// same user has it. A claim left by a killed process doesn't count.
bool ClaimSingleInstance();

}  // namespace orbkl4
