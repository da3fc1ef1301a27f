#pragma once

#include "platform/windows/painted_icon.h"

#include <QLabel>

namespace orbkl4 {

/// Paints the sensor: its housing, its connector and the axes of its coordinate system.
void PaintDevice(QPainter& painter, const QRectF& box);

/// Paints the program's emblem, an attitude ball.
void PaintEmblem(QPainter& painter, const QRectF& box);

/// The emblem as an icon, in the sizes that desktops ask for.
QIcon ProgramIcon();

/// A label that shows a painted picture, sharp at every size and screen scale.
class Picture : public QLabel {
  public:
    /// Shows what `paint` paints; `naturalSize` is the preferred size.
    Picture(ArtworkPainter paint, QSize naturalSize, QWidget* parent = nullptr);

    QSize sizeHint() const override { return naturalSize_; }
    QSize minimumSizeHint() const override { return naturalSize_ / 3; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    ArtworkPainter paint_;
    QSize naturalSize_;
};

}  // namespace orbkl4
