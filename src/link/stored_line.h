#pragma once

#include <string>

namespace orbkl4 {

/// The port number of the settings store as text, "1" where there is none; errors of `GetSetting`.
std::string StoredCommPort();

/// The line settings of the settings store, "38400,n,8,1" where there are none; errors of
/// `GetSetting`.
std::string StoredCommSettings();

/// Stores the port number, given as text; errors of `SaveSetting`.
void StoreCommPort(const std::string& number);

/// Stores the line settings; errors of `SaveSetting`.
void StoreCommSettings(const std::string& settings);

}  // namespace orbkl4
