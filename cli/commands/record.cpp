#include "base/number_text.h"
#include "cli/commands/command.h"
#include "cli/recording.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <fstream>
#include <memory>
#include <optional>
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
    std::string broker;
    std::string topic;
    std::string user;
    std::string passwordFile;
    RecordOptions options = {};
};

template <typename Rows>
std::vector<std::string> NamesIn(const Rows& rows) {
    std::vector<std::string> names;
    names.reserve(rows.size());
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

void AddBroker(CLI::App& app, Words& words) {
    auto* const broker = app.add_option("--mqtt", words.broker, "Publish to an MQTT broker as well")
                             ->type_name("HOST[:PORT]");
    app.add_option("--topic", words.topic, "The topic, else orb-kl4/SERIAL/CHANNEL")
        ->type_name("TOPIC")
        ->needs(broker);
    auto* const user = app.add_option("--mqtt-user", words.user, "The user to log in as")
                           ->type_name("USER")
                           ->needs(broker);
    app.add_option("--mqtt-password-file", words.passwordFile, "A file that holds the password")
        ->type_name("FILE")
        ->needs(user);
}

[[noreturn]] void RefuseValue(const std::string& what, const std::string& value) {
    throw CliError(Failure::Usage, "\"" + value + "\" is no " + what, "see \"orb-kl4 --help\"");
}

int PortNumber(const std::string& text) {
    constexpr int last = 65535;
    const auto port = WholeNumber(text, 1, last);
    if (!port) RefuseValue("TCP port", text);
    return *port;
}

/// HOST, HOST:PORT or [ADDRESS]:PORT; a bare address of version 6 has colons, but no port.
PublisherSettings BrokerIn(const std::string& text) {
    PublisherSettings settings{.host = text};
    auto colon = text.rfind(':');
    if (text.starts_with('[')) {
        const auto end = text.find(']');
        if (end == std::string::npos) RefuseValue("address", text);
        settings.host = text.substr(1, end - 1);
        colon = end + 1 < text.size() ? end + 1 : std::string::npos;
    } else if (colon == text.find(':')) {
        settings.host = text.substr(0, colon);
    } else {
        colon = std::string::npos;
    }
    if (colon != std::string::npos) settings.port = PortNumber(text.substr(colon + 1));
    if (settings.host.empty() || (colon != std::string::npos && text[colon] != ':'))
        RefuseValue("broker", text);
    return settings;
}

std::string FirstLineOf(const std::string& path) {
    std::ifstream file(path);
    std::string line;
    std::getline(file, line);
    if (file.bad() || !file.is_open())
        throw CliError(Failure::Usage, path + " can't be read", "check its name and its rights");
    if (line.ends_with('\r')) line.pop_back();
    return line;
}

std::optional<PublisherSettings> BrokerOf(const Words& words) {
    if (words.broker.empty()) return std::nullopt;
    PublisherSettings settings = BrokerIn(words.broker);
    if (!words.topic.empty() && !IsTopic(words.topic)) RefuseValue("topic", words.topic);
    settings.topic = words.topic;
    settings.user = words.user;
    if (!words.passwordFile.empty()) settings.password = FirstLineOf(words.passwordFile);
    return settings;
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
    options.broker = BrokerOf(words);
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
    AddBroker(app, *words);
    app.add_flag("--no-reconnect", words->noReconnect, "End where the line goes");
    return [words](const Context& context) { return RunRecord(context, *words); };
}

}  // namespace orbkl4::cli
