#include "cli/commands/memory_change.h"

#include "base/number_text.h"
#include "cli/confirm.h"
#include "cli/memory_listing.h"
#include "cli/session.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orbkl4::cli {

namespace {

/// What the three commands take.
struct ChangeOptions {
    bool yes = false;
    bool dryRun = false;
    bool force = false;
    bool otherSensor = false;
};

/// A change that is asked for.
struct Goal {
    /// The words that the sensor is to have, of those that it has.
    std::function<MemoryWords(const MemoryImage& present)> wanted;
    std::optional<std::string> wayBack = std::nullopt;  ///< the backup that it goes back to
};

std::string Count(std::size_t words) {
    return std::to_string(words) + (words == 1 ? " word" : " words");
}

void RequireConsent(const Context& context, const ChangeOptions& options) {
    if (options.yes || options.dryRun || (!context.output.Json() && CanAsk())) return;
    throw CliError(Failure::Usage, "nobody can be asked whether to write",
                   "add --yes, or see with --dry-run what would change");
}

void Show(const Context& context, const MemoryPlan& plan, const MemoryOutcome* outcome,
          const std::string& undo) {
    QJsonObject document{{"serialNumber", plan.Present().serialNumber},
                         {"words", Described(plan.Changes())},
                         {"kept", Described(plan.Kept())},
                         {"backup", QJsonValue()},
                         {"verified", QJsonValue()},
                         {"undo", QJsonValue()}};
    if (outcome != nullptr) {
        document["words"] = Described(outcome->words);
        document["backup"] = QString::fromStdString(outcome->backup);
        document["verified"] = outcome->Mismatches() == 0;
        if (!undo.empty()) document["undo"] = QString::fromStdString(undo);
    }
    context.output.Show("orb-kl4 memory change", document,
                        outcome != nullptr ? Listing(outcome->words) : Listing(plan.Changes()));
}

void NameKept(const Context& context, const MemoryPlan& plan) {
    for (const WordChange& word : plan.Kept()) {
        context.output.Message("address " + std::to_string(word.address) + ", " +
                               NameAt(word.address).toStdString() + ", stays " +
                               std::to_string(word.before) + ": nobody may write it");
    }
}

/// Says how it went, and returns the exit code of that.
ExitCode Report(const Context& context, const MemoryPlan& plan, const MemoryOutcome& outcome,
                const std::string& undo) {
    Show(context, plan, &outcome, undo);
    NameKept(context, plan);
    const bool newSpeed = std::ranges::find(plan.Changes(), eeprom::baudRate,
                                            &WordChange::address) != plan.Changes().end();
    if (newSpeed) {
        context.output.Message("the new speed counts once the sensor has been off and on again");
    }
    const std::size_t mismatches = outcome.Mismatches();
    const std::string goBack = undo.empty() ? "" : "; take it back with \"" + undo + "\"";
    if (mismatches == 0) {
        context.output.Message(Count(outcome.words.size()) + " written and read back" + goBack);
        return ExitCode::Done;
    }
    context.output.Warn(std::to_string(mismatches) + " of " + Count(outcome.words.size()) +
                        " didn't take" + goBack);
    return ExitCode::No;
}

/// What to do where nothing is written.
ExitCode LeaveAsItIs(const Context& context, const MemoryPlan& plan) {
    Show(context, plan, nullptr, {});
    NameKept(context, plan);
    context.output.Message(plan.Changes().empty()
                               ? "nothing is to be changed"
                               : Count(plan.Changes().size()) + " would be changed");
    return ExitCode::Done;
}

bool Agreed(const Context& context, const MemoryPlan& plan, const ChangeOptions& options) {
    if (!context.output.Json()) Show(context, plan, nullptr, {});
    return options.yes || Confirm("Write " + Count(plan.Changes().size()) + " to sensor " +
                                  std::to_string(plan.Present().serialNumber) + "?");
}

/// Carries out what `goal` says on the sensor of `session`, if the user agrees.
ExitCode Change(const Context& context, const ChangeOptions& options, Session& session,
                const Goal& goal) {
    const MemoryBackups backups(session.SerialNumber());
    if (!goal.wayBack) backups.RequireFinished();
    const MemoryImage present = ReadMemory(session);
    const MemoryPlan plan(present, goal.wanted(present));
    // Where the sensor has been before, it may go again.
    if (!options.force && !goal.wayBack) plan.RequireLimits();
    if (options.dryRun) return LeaveAsItIs(context, plan);
    if (plan.Changes().empty()) {
        if (goal.wayBack) backups.NoteUndone(*goal.wayBack, true);
        return LeaveAsItIs(context, plan);
    }
    if (!Agreed(context, plan, options)) {
        context.output.Message("nothing was written");
        return ExitCode::No;
    }
    const MemoryOutcome outcome = CarryOut(plan, session, backups, goal.wayBack);
    const bool isUndone = goal.wayBack && outcome.Mismatches() == 0;
    return Report(context, plan, outcome, isUndone ? std::string() : backups.UndoCommand());
}

using Assignments = std::map<eeprom::Address, int>;  ///< words by address

[[noreturn]] void RefuseAssignment(const std::string& text, const std::string& fault) {
    throw CliError(Failure::Usage, text + ": " + fault);
}

/// Adds "ADDRESS=NUMBER" to `assignments`; throws `Failure::Usage`.
void Append(Assignments& assignments, const std::string& text) {
    const std::size_t sign = std::min(text.find('='), text.size());
    const auto position = WholeNumber(text.substr(0, sign), 0, eeprom::last);
    if (!position || *position % 2 != 0) {
        RefuseAssignment(text, "it has to begin with an even address from 0 to 254 and \"=\"");
    }
    const auto address = static_cast<eeprom::Address>(*position);
    const bool isSigned = IsSignedAddress(address);
    const int least = isSigned ? -32768 : 0;
    const int most = isSigned ? 32767 : 65535;
    const auto number = WholeNumber(text.substr(std::min(sign + 1, text.size())), least, most);
    if (!number) {
        RefuseAssignment(text, "the number has to be a whole one from " + std::to_string(least) +
                                   " to " + std::to_string(most));
    }
    if (eepromCatalogue.at(IndexOf(address)).access == EepromAccess::Fixed) {
        RefuseAssignment(text, "nobody may write this word");
    }
    const int word = static_cast<int>(WordOfNumber(address, *number));
    if (!assignments.emplace(address, word).second) {
        RefuseAssignment(text, "the address is there twice");
    }
}

ExitCode Set(const Context& context, const ChangeOptions& options,
             const std::vector<std::string>& texts) {
    Assignments assignments;
    for (const std::string& text : texts) Append(assignments, text);
    RequireConsent(context, options);
    Session session(context.options.sensor);
    const auto wanted = [&](const MemoryImage& present) {
        MemoryWords words = present.words;
        for (const auto& [address, word] : assignments) words.at(IndexOf(address)) = word;
        return words;
    };
    return Change(context, options, session, {.wanted = wanted});
}

ExitCode Restore(const Context& context, const ChangeOptions& options, const std::string& path) {
    const MemoryImage image = LoadImage(path);
    RequireConsent(context, options);
    Session session(context.options.sensor);
    if (image.serialNumber != session.SerialNumber() && !options.otherSensor) {
        throw CliError(Failure::Usage,
                       path + " is of sensor " + std::to_string(image.serialNumber) +
                           ", and this is sensor " + std::to_string(session.SerialNumber()),
                       "--other-sensor writes it all the same");
    }
    const auto wanted = [&](const MemoryImage& /*present*/) { return image.words; };
    return Change(context, options, session, {.wanted = wanted});
}

ExitCode Undo(const Context& context, const ChangeOptions& options) {
    RequireConsent(context, options);
    Session session(context.options.sensor);
    const auto path = MemoryBackups(session.SerialNumber()).WayBack();
    if (!path) {
        throw CliError(Failure::Usage, "this computer knows of no change of sensor " +
                                           std::to_string(session.SerialNumber()) +
                                           " to take back");
    }
    const auto wanted = [&](const MemoryImage& /*present*/) {
        return MemoryBackups::Load(*path).words;
    };
    return Change(context, options, session, {.wanted = wanted, .wayBack = path});
}

std::shared_ptr<ChangeOptions> AddChangeOptions(CLI::App& app) {
    auto options = std::make_shared<ChangeOptions>();
    app.add_flag("-y,--yes", options->yes, "Write without asking");
    app.add_flag("-n,--dry-run", options->dryRun, "Only show what would change");
    return options;
}

void AddForce(CLI::App& app, ChangeOptions& options) {
    app.add_flag("--force", options.force, "Write words outside their limits too");
}

}  // namespace

Action SetUpSet(CLI::App& app) {
    const auto options = AddChangeOptions(app);
    AddForce(app, *options);
    const auto texts = std::make_shared<std::vector<std::string>>();
    app.add_option("WORDS", *texts, "The words to write, such as 44=64 for 64 at address 44")
        ->type_name("ADDRESS=NUMBER")
        ->required();
    return [=](const Context& context) { return Set(context, *options, *texts); };
}

Action SetUpRestore(CLI::App& app) {
    const auto options = AddChangeOptions(app);
    AddForce(app, *options);
    app.add_flag("--other-sensor", options->otherSensor, "Take the file of another sensor");
    const auto path = std::make_shared<std::string>();
    app.add_option("FILE", *path, "The file to write to the sensor")->type_name("")->required();
    return [=](const Context& context) { return Restore(context, *options, *path); };
}

Action SetUpUndo(CLI::App& app) {
    const auto options = AddChangeOptions(app);
    return [=](const Context& context) { return Undo(context, *options); };
}

}  // namespace orbkl4::cli
