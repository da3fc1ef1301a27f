#pragma once

namespace orbkl4 {

/// Ends the process at once with exit code 0, without closing windows or flushing files.
[[noreturn]] void EndProcess();

}  // namespace orbkl4
