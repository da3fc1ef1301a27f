#pragma once

#include <QColor>

#include <cstdint>

namespace orbkl4 {

/// The system colour "window background", which a field has when nothing special is to be told.
inline constexpr std::uint32_t windowBackground = 0x80000005;

/// The background of a field that is not in use.
inline constexpr std::uint32_t unusedBackground = 0xE0E0E0;

/// The colour of `bgr` (0xBBGGRR), or the palette's own background of fields for
/// `windowBackground`.
QColor Colour(std::uint32_t bgr);

}  // namespace orbkl4
