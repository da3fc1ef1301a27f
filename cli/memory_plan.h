#pragma once

#include "cli/memory_image.h"

#include <vector>

namespace orbkl4::cli {

/// A word with its old and its new value, or its values in two memories.
struct WordChange {
    eeprom::Address address;
    int before;
    int after;
};

/// The words that differ between `before` and `after`, by ascending address.
std::vector<WordChange> Differences(const MemoryWords& before, const MemoryWords& after);

/// A change of a sensor's memory: what the words are now, and what is to be written.
class MemoryPlan {
  public:
    /// The change from `present` to the words `wanted`.
    MemoryPlan(MemoryImage present, const MemoryWords& wanted);

    const MemoryImage& Present() const { return present_; }

    /// The words to write, ascending.
    const std::vector<WordChange>& Changes() const { return changes_; }

    /// The words that nobody may write and that therefore stay otherwise than wanted.
    const std::vector<WordChange>& Kept() const { return kept_; }

    /// Throws `Failure::Usage` for words to write that are outside their limits.
    void RequireLimits() const;

  private:
    MemoryImage present_;
    std::vector<WordChange> changes_;
    std::vector<WordChange> kept_;
};

}  // namespace orbkl4::cli
