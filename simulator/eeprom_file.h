#pragma once

#include "simulator/eeprom.h"

#include <filesystem>

namespace orbkl4sim {

/// Loads `file` into `memory`: lines of an even address and its word, with comments after a `#`.
/// Words that aren't listed keep their values, and a missing file changes nothing. Throws
/// std::runtime_error with file and line number for a bad line.
void LoadEeprom(const std::filesystem::path& file, Eeprom& memory);

/// Replaces `file` by all words of `memory` in one step, so that a crash leaves either the old or
/// the new file; throws std::system_error on failure.
void SaveEeprom(const std::filesystem::path& file, const Eeprom& memory);

}  // namespace orbkl4sim
