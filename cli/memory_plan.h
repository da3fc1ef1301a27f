#pragma once

#include "cli/memory_image.h"

#include <vector>

namespace orbkl4::cli {

/// A word that stands at one value and is to stand at another, or does in another memory.
struct WordChange {
    eeprom::Address address;
    int before;
    int after;
};

/// The words that `before` and `after` don't have alike, ascending.
std::vector<WordChange> Differences(const MemoryWords& before, const MemoryWords& after);

/// A change of a sensor's memory: what stands there, and what is to be written.
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
