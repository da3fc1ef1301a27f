#include "cli/memory_transaction.h"

#include "cli/error.h"
#include "cli/session.h"

#include <algorithm>

namespace orbkl4::cli {

namespace {

void RequireSameSensor(Session& session) {
    const int serialNumber = session.ReadSerialNumber();
    if (serialNumber == session.SerialNumber()) return;
    throw CliError(Failure::NoSensor, "sensor " + std::to_string(serialNumber) +
                                          " answers in place of sensor " +
                                          std::to_string(session.SerialNumber()));
}

/// Whether an exchange that ended so may go well if it is begun anew.
bool IsPassing(const CliError& error) {
    return error.Kind() == Failure::BadAnswer || error.Kind() == Failure::NoAnswer;
}

/// Writes the word and reads it back, up to three times until it is as it should be.
WordResult WriteAndVerify(const WordChange& change, Session& session) {
    constexpr int attempts = 3;
    WordResult result{.change = change, .found = change.before};
    for (int attempt = 1; attempt <= attempts && !result.Verified(); ++attempt) {
        try {
            session.WriteWord(change.address, change.after);
            result.found = session.ReadWord(change.address);
        } catch (const CliError& error) {
            if (!IsPassing(error) || attempt == attempts) throw;
        }
    }
    return result;
}

}  // namespace

std::size_t MemoryOutcome::Mismatches() const {
    return static_cast<std::size_t>(
        std::ranges::count_if(words, [](const WordResult& word) { return !word.Verified(); }));
}

MemoryOutcome CarryOut(const MemoryPlan& plan, Session& session, const MemoryBackups& backups,
                       const std::optional<std::string>& undone) {
    RequireSameSensor(session);
    if (undone) MemoryBackups::Reopen(*undone);
    MemoryOutcome outcome{.backup = backups.Save(plan.Present()), .words = {}};
    try {
        for (const WordChange& change : plan.Changes())
            outcome.words.push_back(WriteAndVerify(change, session));
        if (undone) {
            backups.NoteUndone(*undone, outcome.Mismatches() == 0);
        } else {
            MemoryBackups::Finish(outcome.backup);
        }
    } catch (const CliError& error) {
        const std::string progress = std::to_string(outcome.words.size()) + " of " +
                                     std::to_string(plan.Changes().size()) + " words";
        throw CliError(error.Kind(), std::string(error.what()) + ", after " + progress,
                       "go back to before the change with \"" + backups.UndoCommand() + "\"");
    }
    return outcome;
}

}  // namespace orbkl4::cli
