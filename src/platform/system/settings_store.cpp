#include "platform/system/settings_store.h"

#include "base/run_time_error.h"
#include "platform/system/folders.h"

#include <QSettings>
#include <QStringList>

namespace orbkl4 {

namespace {

QString StorePath(const char* application) {
    return ConfigPath(QLatin1String(application) + QStringLiteral(".ini"));
}

QString FullKey(const char* section, const char* key) {
    return QLatin1String(section) + QLatin1Char('/') + QLatin1String(key);
}

void CheckStatus(const QSettings& store, const char* action) {
    if (store.status() == QSettings::NoError) return;
    Raise(ErrorNumber::PermissionDenied,
          std::string("The settings in ") + store.fileName().toStdString() + " can't be " + action);
}

}  // namespace

std::string GetSetting(const char* application, const char* section, const char* key,
                       const std::string& otherwise) {
    const QSettings store(StorePath(application), QSettings::IniFormat);
    CheckStatus(store, "read");
    const QVariant value = store.value(FullKey(section, key));
    if (!value.isValid()) return otherwise;
    // QSettings reads an unquoted 38400,n,8,1 as a list.
    return value.toStringList().join(QLatin1Char(',')).toStdString();
}

void SaveSetting(const char* application, const char* section, const char* key,
                 const std::string& text) {
    QSettings store(StorePath(application), QSettings::IniFormat);
    store.setValue(FullKey(section, key), QString::fromStdString(text));
    store.sync();
    CheckStatus(store, "written");
}

}  // namespace orbkl4
