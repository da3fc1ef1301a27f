#pragma once

#include "platform/windows/painted_icon.h"

namespace orbkl4 {

/// Paints the sensor: its housing, its connector and the axes of its coordinate system.
void PaintDevice(QPainter& painter, const QRectF& box);

/// Paints the program's emblem, an attitude ball.
void PaintEmblem(QPainter& painter, const QRectF& box);

/// The emblem as an icon, in the sizes that desktops ask for.
QIcon ProgramIcon();

}  // namespace orbkl4
