#pragma once

#include <QColor>

class QLabel;
class QWidget;

namespace orbkl4 {

/// The colours of the house, for what is painted by hand.
namespace look {
inline constexpr QColor accent{0x1F, 0x6F, 0xB5};       ///< levels, pointers, selection
inline constexpr QColor ink{0x1E, 0x27, 0x32};          ///< text and marks
inline constexpr QColor line{0xB3, 0xBE, 0xCA};         ///< thin borders
inline constexpr QColor window{0xEE, 0xF1, 0xF5};       ///< background of screens
inline constexpr QColor disabledInk{0x9A, 0xA5, 0xB1};  ///< text and marks of what is disabled
inline constexpr QColor paleInk{0x5A, 0x66, 0x73};      ///< disabled text that is to be read
inline constexpr QColor warning{0xC4, 0x1E, 0x1E};      ///< the warning label
}  // namespace look

/// Gives the application object, which must exist, its style, palette, a font with digits of one
/// width and the accessibility of the painted controls.
void ApplyHouseLook();

/// Makes `label` a warning: bold red letters.
void MakeWarning(QLabel& label);

/// Gives what is in `frame` darker letters while it is disabled: for numbers that are to be read
/// then, too.
void KeepReadableDisabled(QWidget& frame);

}  // namespace orbkl4
