#pragma once

#include "link/logic/eeprom_address.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace orbkl4 {

/// Who may change a word: `User` everyone, `Advanced` only at the level "Advanced", `Fixed` nobody.
enum class EepromAccess : std::uint8_t { User, Advanced, Fixed };

/// An EEPROM word. `minimum` and `maximum` limit what the user can enter.
struct EepromWord {
    eeprom::Address address;
    std::string_view name;
    int minimum, maximum;
    EepromAccess access;
};

inline constexpr std::size_t eepromWordCount = 128;

/// All words; a word's index is half its address.
extern const std::array<EepromWord, eepromWordCount> eepromCatalogue;

/// The index of the word at `address` in the catalogue and in every array of words.
constexpr std::size_t IndexOf(eeprom::Address address) {
    return static_cast<std::size_t>(address) / 2;
}

/// The remark on a word of class `access`, the same at both levels.
std::string_view RemarkOf(EepromAccess access);

/// Whether a word's field is enabled at the level "Standard" or "Advanced".
constexpr bool IsEnabled(EepromAccess access, bool advancedLevel) {
    return advancedLevel ? access != EepromAccess::Fixed : access == EepromAccess::User;
}

/// The names of all words, by index.
inline std::array<std::string, eepromWordCount> EEPROMNames;

/// Fills `EEPROMNames` from the catalogue.
void FillEEPROMNames();

}  // namespace orbkl4
