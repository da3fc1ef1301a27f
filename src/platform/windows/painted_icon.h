#pragma once

#include <QIcon>

class QPainter;
class QRectF;

namespace orbkl4 {

/// Paints a picture into a box, as large as its proportions let it be.
using ArtworkPainter = void (*)(QPainter& painter, const QRectF& box);

/// An icon that `paint` paints in each size that it is asked for, and not before.
QIcon PaintedIcon(ArtworkPainter paint);

}  // namespace orbkl4
