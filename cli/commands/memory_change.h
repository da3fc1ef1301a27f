#pragma once

#include "cli/commands/command.h"

namespace orbkl4::cli {

// The commands of `memory` that write.
Action SetUpSet(CLI::App& app);
Action SetUpRestore(CLI::App& app);
Action SetUpUndo(CLI::App& app);

}  // namespace orbkl4::cli
