#pragma once

#include <string>

namespace orbkl4 {

/// The text stored under application, section and key, `otherwise` where there is none; a store
/// that can't be read is a run-time error.
std::string GetSetting(const char* application, const char* section, const char* key,
                       const std::string& otherwise);

/// Stores `text` under application, section and key at once; a store that can't be written is a
/// run-time error.
void SaveSetting(const char* application, const char* section, const char* key,
                 const std::string& text);

}  // namespace orbkl4
