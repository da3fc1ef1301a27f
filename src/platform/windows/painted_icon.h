#pragma once

#include <QIcon>

class QPainter;
class QRectF;

namespace orbkl4 {

/// Paints a picture as large as fits into the box.
using ArtworkPainter = void (*)(QPainter& painter, const QRectF& box);

/// An icon that `paint` paints on demand, in the size needed.
QIcon PaintedIcon(ArtworkPainter paint);

}  // namespace orbkl4
