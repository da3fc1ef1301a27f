#pragma once

#include <string>

namespace orbkl4 {

/// The stored port number as text, "1" where none is stored; errors as `GetSetting`.
std::string StoredCommPort();

/// The stored line settings, "38400,n,8,1" where none are stored; errors as `GetSetting`.
std::string StoredCommSettings();

/// Stores the port number, given as text; errors as `SaveSetting`.
void StoreCommPort(const std::string& number);

/// Stores the line settings; errors as `SaveSetting`.
void StoreCommSettings(const std::string& settings);

}  // namespace orbkl4
