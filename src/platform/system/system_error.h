#pragma once

#include <string>

namespace orbkl4 {

/// Throws the run-time error for the operating system's error code `error`: 61, 70 or 76 where one
/// fits, else 57 with the system's own text. `subject`, if any, is added to the description.
[[noreturn]] void RaiseSystemError(int error, const std::string& subject = {});

}  // namespace orbkl4
