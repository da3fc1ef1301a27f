#include "cli/commands/command.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <string>

namespace orbkl4::cli {

namespace {

// Walks along the words typed so far to the command that they name, and offers its words; after an
// option that takes one of several values, those.
constexpr const char* scriptStart = R"(_orb_kl4() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]}
    local command=orb-kl4 words= word
    for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
        case "$command $word" in
)";
constexpr const char* scriptMiddle = R"(        esac
    done
    case "$command" in
)";
constexpr const char* scriptValues = R"(    esac
    case "$command $previous" in
)";
constexpr const char* scriptEnd = R"(    esac
    COMPREPLY=($(compgen -W "$words" -- "$current"))
}
complete -o default -F _orb_kl4 orb-kl4
)";

/// The rows of the script's three tables.
struct Rows {
    std::string steps;   ///< from a command to one of its own
    std::string words;   ///< that a command offers
    std::string values;  ///< that an option of a command offers
};

bool IsListed(const CLI::App* part) { return !part->get_group().empty(); }

/// The values of `option` if it takes one of several, which stand in braces in its type.
std::string ValuesOf(const CLI::Option& option) {
    const std::string type = option.get_type_name();
    const auto begin = type.find('{');
    if (begin == std::string::npos) return {};
    std::string values = type.substr(begin + 1, type.find('}', begin) - begin - 1);
    std::ranges::replace(values, ',', ' ');
    return values;
}

std::string Row(const std::string& pattern, const std::string& effect) {
    return "        " + pattern + ") " + effect + " ;;\n";
}

std::string Offer(const std::string& words) { return "words=\"" + words + "\""; }

/// Adds the options of `part`, which stands at `path`, to `rows`, and returns their words.
std::string AppendOptions(Rows& rows, const CLI::App& part, const std::string& path) {
    std::string words;
    for (const CLI::Option* option : part.get_options()) {
        const std::string values = ValuesOf(*option);
        for (const std::string& name : option->get_lnames()) {
            const std::string dashed = "--" + name;
            words += " " + dashed;
            if (!values.empty()) rows.values += Row(path + dashed, Offer(values));
        }
        if (option->get_positional()) words += " " + values;
    }
    return words;
}

/// Adds `part`, which stands at `path`, and its commands; every one offers `common` as well.
void Append(Rows& rows, const CLI::App& part, const std::string& path, const std::string& common) {
    std::string words = common;
    if (part.get_parent() != nullptr) words += AppendOptions(rows, part, "\"" + path + " \"");
    for (const CLI::App* command : part.get_subcommands(IsListed)) {
        const std::string deeper = path + " " + command->get_name();
        words += " " + command->get_name();
        rows.steps += Row("\"" + deeper + "\"", "command+=\" $word\"");
        Append(rows, *command, deeper, common);
    }
    rows.words += Row("\"" + path + "\"", Offer(words));
}

/// The script that completes the command lines of `program` in bash.
std::string BashScript(const CLI::App& program) {
    Rows rows;
    Append(rows, program, program.get_name(), AppendOptions(rows, program, "*\" \""));
    return scriptStart + rows.steps + scriptMiddle + rows.words + scriptValues + rows.values +
           scriptEnd;
}

}  // namespace

Action SetUpCompletion(CLI::App& app) {
    app.require_subcommand(1);
    app.add_subcommand("bash", "Print a completion script for bash");
    return [&app](const Context& context) {
        context.output.Print(QString::fromStdString(BashScript(*app.get_parent())));
        return ExitCode::Done;
    };
}

}  // namespace orbkl4::cli
