#include "cli/recording.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

namespace orbkl4::cli {

namespace {

/// The command line of `record` as it was parsed.
struct Words {
    std::string channel;
    std::string format{rowFormats.front().name};
    bool append = false;
    bool overwrite = false;
    bool noReconnect = false;
    RecordOptions options = {};
};

template <typename Rows>
std::vector<std::string> NamesIn(const Rows& rows) {
    std::vector<std::string> names;
    for (const auto& row : rows) names.emplace_back(row.name);
    return names;
}

template <typename Rows>
const auto* RowNamed(const Rows& rows, const std::string& name) {
    return &*std::ranges::find_if(rows, [&](const auto& row) { return row.name == name; });
}

void AddLimits(CLI::App& app, RecordOptions& options) {
    constexpr double longest = 1e9;
    constexpr double slowest = 1e-6;
    app.add_option("--samples", options.samples, "End after N rows")
        ->type_name("N")
        ->check(CLI::PositiveNumber.description(""));
    app.add_option("--seconds", options.seconds, "End after S seconds")
        ->type_name("S")
        ->check(CLI::Range(slowest, longest).description(""));
    app.add_option("--rate", options.rate, "Write HZ rows a second, by the sensor's ticks")
        ->type_name("HZ")
        ->check(CLI::Range(slowest, longest).description(""));
    app.add_flag("--wait", options.wait, "Wait for a sensor that isn't there yet");
}

void AddTarget(CLI::App& app, Words& words) {
    app.add_option("-o,--output", words.options.target.path,
                   "Write to FILE, such as log-%Y%m%d-%H%M%S.csv, and FILE.json beside it")
        ->type_name("FILE");
    auto* const append = app.add_flag("--append", words.append, "Go on with a file that is there");
    app.add_flag("--overwrite", words.overwrite, "Replace a file that is there")->excludes(append);
    app.add_option("--format", words.format, "The kind of file")
        ->check(CLI::IsMember(NamesIn(rowFormats)))
        ->capture_default_str();
}

ExitCode RunRecord(const Context& context, const Words& words) {
    RecordOptions options = words.options;
    Target& target = options.target;
    if (context.output.Json() && target.path.empty()) {
        throw CliError(Failure::Usage, "--json needs -o, as the samples go to standard output",
                       "see --format jsonl for samples in JSON");
    }
    options.channel = RowNamed(channels, words.channel);
    options.format = RowNamed(rowFormats, words.format);
    options.reconnect = !words.noReconnect;
    if (words.append) target.existing = Existing::Append;
    if (words.overwrite) target.existing = Existing::Overwrite;
    return Record(context, options);
}

}  // namespace

Action SetUpRecord(CLI::App& app) {
    const auto words = std::make_shared<Words>();
    app.add_option("channel", words->channel, "What to record")
        ->required()
        ->check(CLI::IsMember(NamesIn(channels)));
    AddLimits(app, words->options);
    AddTarget(app, *words);
    app.add_flag("--no-reconnect", words->noReconnect, "End where the line goes");
    return [words](const Context& context) { return RunRecord(context, *words); };
}

}  // namespace orbkl4::cli
