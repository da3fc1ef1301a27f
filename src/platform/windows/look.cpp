#include "platform/windows/look.h"

#include "platform/system/desktop_names.h"

#include <QApplication>
#include <QPalette>
#include <QStyleHints>

#include <cstdlib>

namespace orbkl4 {

namespace {

Look& TheLook() {
    static Look look = Look::Light;
    return look;
}

bool IsBlackAndWhite(const QColor& one, const QColor& other) {
    return std::abs(one.lightness() - other.lightness()) == 255;
}

#if QT_VERSION >= QT_VERSION_CHECK(6, 5, 0)
bool QtSaysDark() { return QGuiApplication::styleHints()->colorScheme() == Qt::ColorScheme::Dark; }
#else
bool QtSaysDark() { return false; }
#endif

}  // namespace

Look CurrentLook() { return TheLook(); }

void UseLook(Look look) { TheLook() = look; }

bool IsContrast(Look look) { return look == Look::ContrastLight || look == Look::ContrastDark; }

Look LookOf(const QPalette& palette, const QString& names) {
    const QColor text = palette.color(QPalette::Active, QPalette::WindowText);
    const QColor window = palette.color(QPalette::Active, QPalette::Window);
    const auto hasName = [&](QLatin1String name) {
        return names.contains(name, Qt::CaseInsensitive);
    };
    const bool dark = text.lightness() > window.lightness() || hasName(QLatin1String("dark")) ||
                      hasName(QLatin1String("inverse"));
    if (IsBlackAndWhite(text, window) || hasName(QLatin1String("contrast"))) {
        return dark ? Look::ContrastDark : Look::ContrastLight;
    }
    return dark ? Look::Dark : Look::Light;
}

Look DesktopLook() {
    QString names = DesktopNames();
    if (QtSaysDark()) names += QStringLiteral(" dark");
    return LookOf(QApplication::palette(), names);
}

}  // namespace orbkl4
