#pragma once

#include "simulator/eeprom.h"

#include <filesystem>

namespace orbkl4sim {

/// Reads `file`, lines of an even address and its word, into `memory`; a `#` begins a remark, and
/// words that the file doesn't name stay as they are. Throws std::runtime_error that names file and
/// line where one is wrong; a missing file is none.
void LoadEeprom(const std::filesystem::path& file, Eeprom& memory);

/// Writes all words of `memory` to `file` so that whatever happens the file is whole, the old one
/// or the new one; throws std::system_error where that fails.
void SaveEeprom(const std::filesystem::path& file, const Eeprom& memory);

}  // namespace orbkl4sim
