#include "cli/memory_plan.h"

#include "cli/error.h"
#include "memory/logic/map_runs.h"

#include <utility>

namespace orbkl4::cli {

namespace {

bool IsFixed(eeprom::Address address) {
    return eepromCatalogue.at(IndexOf(address)).access == EepromAccess::Fixed;
}

/// What is wrong with `number` at `address`; empty if nothing is.
std::string FaultOf(eeprom::Address address, int number) {
    const EepromWord& word = eepromCatalogue.at(IndexOf(address));
    if (address == eeprom::baudRate && SnappedBaudCode(number) != number) {
        return "isn't 129, 64 or 21";
    }
    if (address == eeprom::timer2Prescaler && SnappedPrescaler(number) != number) {
        return "isn't 1, 4 or 16";
    }
    if (number >= word.minimum && number <= word.maximum) return {};
    return "isn't from " + std::to_string(word.minimum) + " to " + std::to_string(word.maximum);
}

}  // namespace

std::vector<WordChange> Differences(const MemoryWords& before, const MemoryWords& after) {
    std::vector<WordChange> changes;
    for (const EepromWord& word : eepromCatalogue) {
        const std::size_t index = IndexOf(word.address);
        if (before.at(index) != after.at(index)) {
            changes.push_back({word.address, before.at(index), after.at(index)});
        }
    }
    return changes;
}

MemoryPlan::MemoryPlan(MemoryImage present, const MemoryWords& wanted)
    : present_(std::move(present)) {
    for (const WordChange& change : Differences(present_.words, wanted))
        (IsFixed(change.address) ? kept_ : changes_).push_back(change);
}

void MemoryPlan::RequireLimits() const {
    std::string faults;
    for (const WordChange& change : changes_) {
        const int number = NumberAt(change.address, change.after);
        const std::string fault = FaultOf(change.address, number);
        if (fault.empty()) continue;
        faults += (faults.empty() ? "" : ", ") + std::to_string(number) + " for address " +
                  std::to_string(change.address) + " " + fault;
    }
    if (!faults.empty()) {
        throw CliError(Failure::Usage, "outside the limits: " + faults,
                       "--force writes it all the same");
    }
}

}  // namespace orbkl4::cli
