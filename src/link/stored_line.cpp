#include "link/stored_line.h"

#include "link/logic/baud_rates.h"
#include "platform/system/settings_store.h"

namespace orbkl4 {

namespace {

constexpr const char* application = "ORB-KL4-RS232";
constexpr const char* section = "Startup";
constexpr const char* portKey = "CurrentCommPort";
constexpr const char* settingsKey = "CurrentCommSettings";

}  // namespace

std::string StoredCommPort() { return GetSetting(application, section, portKey, "1"); }

std::string StoredCommSettings() {
    return GetSetting(application, section, settingsKey, LineSettingsAt(defaultBaudRate.text));
}

void StoreCommPort(const std::string& number) {
    SaveSetting(application, section, portKey, number);
}

void StoreCommSettings(const std::string& settings) {
    SaveSetting(application, section, settingsKey, settings);
}

}  // namespace orbkl4
