#pragma once

#include "cli/options.h"
#include "cli/output.h"

namespace orbkl4::cli {

/// What a command runs on.
struct Context {
    const Options& options;
    const Output& output;
};

}  // namespace orbkl4::cli
