#pragma once

#include "cli/context.h"
#include "cli/error.h"

#include <functional>
#include <span>

namespace CLI {
class App;
}

namespace orbkl4::cli {

/// Runs a parsed command; throws `CliError` if it fails.
using Action = std::function<ExitCode(const Context&)>;

/// A command: its name, one line of help, and what adds its own options to its part of the command
/// line and returns what runs it.
struct Command {
    const char* name;
    const char* help;  ///< empty: the command isn't listed
    Action (*setUp)(CLI::App& app);
};

/// Adds `commands` to `app`, one of which must then be given; the action runs that one.
Action AddCommands(CLI::App& app, std::span<const Command> commands);

// The commands, each in its own file in cli/commands/.
Action SetUpPorts(CLI::App& app);
Action SetUpInfo(CLI::App& app);
Action SetUpRecord(CLI::App& app);
Action SetUpMemory(CLI::App& app);
Action SetUpDoctor(CLI::App& app);
Action SetUpCompletion(CLI::App& app);

}  // namespace orbkl4::cli
