#pragma once

#include <cstdint>

class QWidget;

namespace orbkl4 {

/// The system colour "window background", the usual background of a field.
inline constexpr std::uint32_t windowBackground = 0x80000005;

/// The background of a field that is not in use.
inline constexpr std::uint32_t unusedBackground = 0xE0E0E0;

/// The background of a field whose number differs from the sensor's.
inline constexpr std::uint32_t modifiedBackground = 0xC0C0FF;

/// Gives `field` the background `bgr`, as 0xBBGGRR or `windowBackground`; the two colours that
/// have a meaning are shown as the look has them.
void SetBackground(QWidget& field, std::uint32_t bgr);

}  // namespace orbkl4
