#pragma once

#include <string>

namespace orbkl4 {

/// The text stored under application, section and key, or `otherwise` if there is none; error 70
/// if the store can't be read.
std::string GetSetting(const char* application, const char* section, const char* key,
                       const std::string& otherwise);

/// Stores `text` under application, section and key at once; error 70 if the store can't be
/// written.
void SaveSetting(const char* application, const char* section, const char* key,
                 const std::string& text);

}  // namespace orbkl4
