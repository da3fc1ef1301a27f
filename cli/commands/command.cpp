#include "cli/commands/command.h"

#include <CLI/CLI.hpp>

#include <utility>
#include <vector>

namespace orbkl4::cli {

Action AddCommands(CLI::App& app, std::span<const Command> commands) {
    app.require_subcommand(1);
    std::vector<std::pair<CLI::App*, Action>> actions;
    for (const Command& command : commands) {
        CLI::App* const part = app.add_subcommand(command.name, command.help);
        if (*command.help == '\0') part->group("");
        actions.emplace_back(part, command.setUp(*part));
    }
    return [actions](const Context& context) {
        for (const auto& [part, action] : actions)
            if (part->parsed()) return action(context);
        throw CliError(Failure::Usage, "no command is given");
    };
}

}  // namespace orbkl4::cli
