#pragma once

#include <string>

namespace orbkl4::bench {

/// What a program with a window costs until it waits for its user.
struct ProcessCost {
    double startSeconds = 0;   ///< from its start until it has become idle
    double residentBytes = 0;  ///< when idle
};

/// Starts `program` without arguments, waits until it is idle, and ends it.
ProcessCost CostOf(const std::string& program);

}  // namespace orbkl4::bench
