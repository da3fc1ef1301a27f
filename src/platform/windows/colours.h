#pragma once

#include <QColor>

/// The colours of the program, for what it paints itself.
namespace orbkl4::colours {

inline constexpr QColor accent{0x1F, 0x6F, 0xB5};        ///< levels, pointers, selection
inline constexpr QColor ink{0x1E, 0x27, 0x32};           ///< text and marks
inline constexpr QColor line{0xB3, 0xBE, 0xCA};          ///< thin borders
inline constexpr QColor window{0xEE, 0xF1, 0xF5};        ///< background of screens
inline constexpr QColor disabledInk{0x9A, 0xA5, 0xB1};   ///< text and marks of disabled controls
inline constexpr QColor disabledBase{0xF1, 0xF3, 0xF6};  ///< background of what is disabled
inline constexpr QColor paleInk{0x5A, 0x66, 0x73};       ///< disabled text that must stay readable
inline constexpr QColor warning{0xC4, 0x1E, 0x1E};       ///< the warning label

}  // namespace orbkl4::colours
