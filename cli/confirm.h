#pragma once

#include <string>

namespace orbkl4::cli {

/// Whether there is a terminal to ask on.
bool CanAsk();

/// Asks `question` on the terminal; true if the answer begins with "y". Throws `Interrupted`.
bool Confirm(const std::string& question);

}  // namespace orbkl4::cli
