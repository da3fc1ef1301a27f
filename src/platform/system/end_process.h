#pragma once

namespace orbkl4 {

/// Ends the process at once, with success: no window is asked, nothing is flushed or closed.
[[noreturn]] void EndProcess();

}  // namespace orbkl4
