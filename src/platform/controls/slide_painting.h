#pragma once

#include <QLineF>
#include <QRectF>

class QPainter;

namespace orbkl4 {

/// The measures of a slide across its track, in pixels beside text in the usual font.
namespace slide {
inline constexpr double groove = 8;
inline constexpr double markGap = 5;   ///< between groove and marks
inline constexpr double mark = 9;      ///< length of a numbered mark
inline constexpr double subMark = 5;   ///< length of a small mark
inline constexpr double pointer = 11;  ///< half the height of arrow and thumb
inline constexpr double tube = 16;     ///< width of a thermometer's glass
inline constexpr double bulb = 21;     ///< radius of a thermometer's bulb
}  // namespace slide

/// Paints the empty groove along `track`.
void PaintGroove(QPainter& painter, const QLineF& track, bool enabled);

/// Fills the groove from the start of `track` to `place`.
void PaintLevel(QPainter& painter, const QLineF& track, const QPointF& place, bool enabled);

/// Paints the pointer of a slide that only shows values: a small arrow that points at `place` from
/// the side without marks.
void PaintArrow(QPainter& painter, const QPointF& place, bool vertical, bool enabled);

/// Paints the pointer that the user can move, with a ring while it has the focus.
void PaintThumb(QPainter& painter, const QPointF& place, bool vertical, bool focus, bool enabled);

/// Paints a thermometer's glass with its bulb below the start of `track`.
void PaintGlass(QPainter& painter, const QLineF& track);

/// Fills the thermometer from its bulb to `place`.
void PaintFluid(QPainter& painter, const QLineF& track, const QPointF& place, bool enabled);

}  // namespace orbkl4
