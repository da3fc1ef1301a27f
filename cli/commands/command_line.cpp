#include "cli/commands/command_line.h"

#include "base/program.h"
#include "cli/commands/command.h"
#include "cli/commands/common_options.h"
#include "cli/signals.h"

#include <CLI/CLI.hpp>

#include <array>
#include <exception>
#include <iostream>
#include <optional>
#include <span>
#include <string_view>

namespace orbkl4::cli {

namespace {

/// All commands, in the order of the help.
constexpr std::array commands = std::to_array<Command>({
    {"ports", "List the 16 ports and what is on them", SetUpPorts},
    {"info", "Show what the sensor says of itself", SetUpInfo},
    {"record", "Record samples of a channel", SetUpRecord},
    {"memory", "Show, save, compare and change the sensor's memory", SetUpMemory},
    {"doctor", "Say how well the line carries, and what to do", SetUpDoctor},
    {"completion", "", SetUpCompletion},
});

/// What `body` returns, or the exit code of the error that it throws.
template <typename Body>
int ExitOf(const Output& output, const Body& body) {
    try {
        return static_cast<int>(body());
    } catch (const CliError& error) {
        output.Fail(error);
        return error.Exit();
    } catch (const std::exception& error) {
        const CliError wrapped(Failure::System, error.what());
        output.Fail(wrapped);
        return wrapped.Exit();
    }
}

/// Parses the command line; an exit code if that is all, as for --help.
std::optional<ExitCode> Parse(CLI::App& app, int argc, char** argv) {
    try {
        app.parse(argc, argv);
        TakeEnvironment(app);
        return std::nullopt;
    } catch (const CLI::Success& help) {
        app.exit(help, std::cout, std::cout);
        return ExitCode::Done;
    } catch (const CLI::ParseError& error) {
        throw CliError(Failure::Usage, error.what(), "see \"orb-kl4 --help\"");
    }
}

/// Whether errors are to be in JSON: asked before parsing, which is what may fail.
bool WantsJson(std::span<char*> arguments) {
    return std::ranges::any_of(arguments,
                               [](const char* text) { return std::string_view(text) == "--json"; });
}

}  // namespace

int RunCommandLine(int argc, char** argv) {
    Options options;
    CLI::App app("The ORB-KL4 sensor on the command line.", "orb-kl4");
    app.fallthrough();
    app.footer("Every command takes the options of \"orb-kl4 --help\" too.");
    app.set_version_flag("--version", VersionText());
    AddCommonOptions(app, options);
    const Action run = AddCommands(app, commands);
    app.footer("These options may stand before or after the command.");
    const Output early(WantsJson({argv, static_cast<std::size_t>(argc)}), false);
    return ExitOf(early, [&] {
        CatchSignals();
        if (const auto done = Parse(app, argc, argv)) return *done;
        return run({options, Output(options.json, options.quiet)});
    });
}

}  // namespace orbkl4::cli
