#pragma once

#include "cli/options.h"

namespace CLI {
class App;
}

namespace orbkl4::cli {

/// Adds the options of every command to `app`, to be stored in `options` by its parsing.
void AddCommonOptions(CLI::App& app, Options& options);

/// Takes from the environment what the parsed command line of `app` doesn't say; throws
/// CLI::ParseError for a value that the option would refuse.
void TakeEnvironment(CLI::App& app);

}  // namespace orbkl4::cli
