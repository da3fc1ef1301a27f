#pragma once

#include <QColor>
#include <QFont>
#include <QSizeF>

namespace orbkl4manual {

/// Dots per inch of the layout; fine enough not to disturb the spacing of letters.
inline constexpr int resolution = 1200;

/// A length in dots.
constexpr double Millimetres(double length) { return length / 25.4 * resolution; }

namespace style {

// The page, in dots: A4.
inline const QSizeF page(Millimetres(210), Millimetres(297));
inline constexpr double left = Millimetres(22);
inline constexpr double width = Millimetres(166);
inline constexpr double top = Millimetres(27);
inline constexpr double bottom = Millimetres(279);
inline constexpr double height = bottom - top;
inline constexpr double headBaseline = Millimetres(16);  // of the running head
inline constexpr double headRule = Millimetres(18.5);
inline constexpr double titleTop = Millimetres(70);  // where the text of the title page begins

inline constexpr QColor ink{0x1C, 0x24, 0x2B};
inline constexpr QColor accent{0x1D, 0x4E, 0x7A};
inline constexpr QColor faintInk{0x5A, 0x67, 0x73};
inline constexpr QColor rule{0xC4, 0xCD, 0xD6};
inline constexpr QColor shade{0xEF, 0xF3, 0xF7};

// Sizes in points.
inline constexpr double bodySize = 9;
inline constexpr double smallSize = 8;
inline constexpr double titleSize = 21;
inline constexpr double headingSizes[] = {17, 12, 10};

inline constexpr double lineHeight = 128;  // percent

/// The font of running text; one that every build machine has.
inline QFont Text(double points = bodySize, bool bold = false) {
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPointSizeF(points);
    font.setBold(bold);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

/// The font of commands and of file contents.
inline QFont Mono(double points = smallSize) {
    QFont font = Text(points);
    font.setFamily(QStringLiteral("DejaVu Sans Mono"));
    return font;
}

}  // namespace style

}  // namespace orbkl4manual
