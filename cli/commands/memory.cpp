#include "cli/commands/command.h"
#include "cli/commands/memory_change.h"
#include "cli/memory_listing.h"
#include "cli/session.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <memory>
#include <string>
#include <vector>

namespace orbkl4::cli {

namespace {

using Addresses = std::vector<int>;

const char* AccessName(EepromAccess access) {
    switch (access) {
        case EepromAccess::User: return "user";
        case EepromAccess::Advanced: return "advanced";
        case EepromAccess::Fixed: break;
    }
    return "fixed";
}

/// The catalogue's rows at `addresses`; all if there are none.
std::vector<EepromWord> Chosen(const Addresses& addresses) {
    if (addresses.empty()) return {eepromCatalogue.begin(), eepromCatalogue.end()};
    std::vector<EepromWord> words;
    for (const int address : addresses)
        words.push_back(eepromCatalogue.at(IndexOf(static_cast<eeprom::Address>(address))));
    return words;
}

MemoryWords Read(Session& session, const std::vector<EepromWord>& chosen) {
    if (chosen.size() == eepromWordCount) return ReadMemory(session).words;
    MemoryWords words{};
    for (const EepromWord& word : chosen)
        words.at(IndexOf(word.address)) = session.ReadWord(word.address);
    return words;
}

ExitCode Show(const Context& context, const Addresses& addresses) {
    Session session(context.options.sensor);
    const std::vector<EepromWord> chosen = Chosen(addresses);
    const MemoryWords words = Read(session, chosen);
    Table table{.heading = {"ADDRESS", "NAME", "NUMBER", "FROM", "TO", "ACCESS"}, .rows = {}};
    QJsonArray described;
    for (const EepromWord& word : chosen) {
        const int number = NumberAt(word.address, words.at(IndexOf(word.address)));
        table.rows.push_back({QString::number(word.address), NameAt(word.address),
                              QString::number(number), QString::number(word.minimum),
                              QString::number(word.maximum), AccessName(word.access)});
        described.append(QJsonObject{{"address", word.address},
                                     {"name", NameAt(word.address)},
                                     {"number", number},
                                     {"minimum", word.minimum},
                                     {"maximum", word.maximum},
                                     {"access", AccessName(word.access)}});
    }
    context.output.Show("orb-kl4 memory show",
                        {{"serialNumber", session.SerialNumber()}, {"words", described}}, table);
    return ExitCode::Done;
}

ExitCode Save(const Context& context, const std::string& path) {
    Session session(context.options.sensor);
    const MemoryImage image = ReadMemory(session);
    SaveImage(image, path);
    context.output.Show("orb-kl4 memory save",
                        {{"serialNumber", image.serialNumber},
                         {"savedAt", image.savedAt},
                         {"file", QString::fromStdString(path)}},
                        {});
    context.output.Message("the memory of sensor " + std::to_string(image.serialNumber) +
                           " is saved in " + path);
    return ExitCode::Done;
}

MemoryWords Second(const Context& context, const std::string& path) {
    if (!path.empty()) return LoadImage(path).words;
    Session session(context.options.sensor);
    return ReadMemory(session).words;
}

ExitCode Diff(const Context& context, const std::string& first, const std::string& second) {
    const MemoryWords before = LoadImage(first).words;
    const auto differences = Differences(before, Second(context, second));
    context.output.Show("orb-kl4 memory diff", {{"words", Described(differences)}},
                        Listing(differences));
    return differences.empty() ? ExitCode::Done : ExitCode::No;
}

Action SetUpShow(CLI::App& app) {
    const auto addresses = std::make_shared<Addresses>();
    app.add_option("ADDRESS", *addresses, "Only these words, each by its address, 0 to 254")
        ->type_name("")
        ->check([](const std::string& text) -> std::string {
            int address = -1;
            const bool right = CLI::detail::lexical_cast(text, address) && address % 2 == 0 &&
                               address >= 0 && address <= eeprom::last;
            return right ? "" : text + " isn't an even number from 0 to 254";
        });
    return [addresses](const Context& context) { return Show(context, *addresses); };
}

Action SetUpSave(CLI::App& app) {
    const auto path = std::make_shared<std::string>();
    app.add_option("FILE", *path, "The file to write; replaced if it is there")
        ->type_name("")
        ->required();
    return [path](const Context& context) { return Save(context, *path); };
}

Action SetUpDiff(CLI::App& app) {
    const auto paths = std::make_shared<std::array<std::string, 2>>();
    app.add_option("FILE", paths->front(), "The file with the old words")
        ->type_name("")
        ->required();
    app.add_option("FILE2", paths->back(), "The file with the new words; the sensor without one")
        ->type_name("");
    return [paths](const Context& context) { return Diff(context, paths->front(), paths->back()); };
}

constexpr std::array memoryCommands = std::to_array<Command>({
    {"show", "Show words of the memory", SetUpShow},
    {"save", "Save the whole memory in a file", SetUpSave},
    {"diff", "Compare a file with the sensor or with another file", SetUpDiff},
    {"set", "Write single words", SetUpSet},
    {"restore", "Write what a file holds", SetUpRestore},
    {"undo", "Go back to before the last change", SetUpUndo},
});

}  // namespace

Action SetUpMemory(CLI::App& app) { return AddCommands(app, memoryCommands); }

}  // namespace orbkl4::cli
