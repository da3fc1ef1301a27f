#pragma once

#include <QPixmap>
#include <QWidget>

#include <functional>

namespace orbkl4 {

/// The part of a control's picture that its value doesn't change, kept as a pixmap in the
/// resolution of the device that it is painted on.
class PaintedFace {
  public:
    /// Draws the face of `widget` with `painter`; `paint` makes it anew where size, resolution or
    /// the enabled state has changed.
    void Draw(QPainter& painter, const QWidget& widget,
              const std::function<void(QPainter&)>& paint);

    /// Has the face made anew at the next drawing.
    void Forget() { pixmap_ = {}; }

  private:
    QPixmap pixmap_;
    bool enabled_ = true;
};

}  // namespace orbkl4
