#pragma once

#include "cli/memory_backups.h"
#include "cli/memory_plan.h"

#include <optional>
#include <string>
#include <vector>

namespace orbkl4::cli {

class Session;

/// What became of one word.
struct WordResult {
    WordChange change;
    int found;  ///< as read back last

    bool Verified() const { return found == change.after; }
};

/// What became of a change.
struct MemoryOutcome {
    std::string backup;  ///< path of what stood there before
    std::vector<WordResult> words;

    /// How many words aren't as they should be.
    std::size_t Mismatches() const;
};

/// Writes what `plan` says to the sensor and reads it back, after saving the present words;
/// `undone` is the backup that the plan goes back to, if it does. Throws what `Session::Exchange`
/// and `MemoryBackups` do, and `Failure::NoSensor` if another sensor answers by now. Once a word
/// may have been written, the mark stays until all have been dealt with, and errors name the way
/// back.
MemoryOutcome CarryOut(const MemoryPlan& plan, Session& session, const MemoryBackups& backups,
                       const std::optional<std::string>& undone);

}  // namespace orbkl4::cli
