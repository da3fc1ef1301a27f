#include "platform/system/desktop_names.h"

#include <QProcess>
#include <QStringList>

namespace orbkl4 {

namespace {

constexpr const char* interfaceSettings = "org.gnome.desktop.interface";
constexpr const char* accessSettings = "org.gnome.desktop.a11y.interface";

/// The value of one of GNOME's settings, empty where it can't be read. Its own program reads it,
/// which every GNOME has, so that no further library is needed.
QString GnomeSetting(const char* schema, const char* key) {
    constexpr int patienceMilliseconds = 300;
    QProcess reader;
    reader.start(QStringLiteral("gsettings"),
                 {QStringLiteral("get"), QLatin1String(schema), QLatin1String(key)},
                 QIODevice::ReadOnly);
    if (!reader.waitForFinished(patienceMilliseconds)) {
        reader.kill();
        reader.waitForFinished(patienceMilliseconds);
        return {};
    }
    return QString::fromUtf8(reader.readAllStandardOutput()).trimmed();
}

}  // namespace

QString DesktopNames() {
    QString chosen = qEnvironmentVariable("GTK_THEME");
    if (!chosen.isEmpty()) return chosen;
    if (!qEnvironmentVariable("XDG_CURRENT_DESKTOP").contains(QLatin1String("GNOME"))) return {};
    QStringList names{GnomeSetting(interfaceSettings, "gtk-theme"),
                      GnomeSetting(interfaceSettings, "color-scheme")};
    if (GnomeSetting(accessSettings, "high-contrast") == QLatin1String("true")) {
        names += QStringLiteral("contrast");
    }
    return names.join(QLatin1Char(' '));
}

}  // namespace orbkl4
