#pragma once

#include <QPixmap>
#include <QWidget>

#include <functional>

namespace orbkl4 {

/// The part of a control's picture that its value doesn't change, what lies behind it included,
/// kept as a pixmap in the resolution of the device that it is painted on. So a new value repaints
/// nothing but its control, and blends nothing.
class PaintedFace {
  public:
    /// The face of `widget`, which from now on is opaque.
    explicit PaintedFace(QWidget* widget);

    /// Draws the face with `painter` where `area` is to be painted; `paint` makes it anew where its
    /// size, resolution, place or enabled state has changed.
    void Draw(QPainter& painter, const QRect& area, const std::function<void(QPainter&)>& paint);

    /// Has the face made anew at the next drawing.
    void Forget() { pixmap_ = {}; }

  private:
    /// What the face depends on besides the control's own properties.
    struct Circumstances {
        QSize pixels;
        qreal ratio = 0;
        QPoint place;
        bool enabled = true;
        bool behindEnabled = true;

        bool operator==(const Circumstances&) const = default;
    };

    void PaintBackground(QPainter& painter) const;

    QWidget* widget_;
    QPixmap pixmap_;
    Circumstances made_;
};

}  // namespace orbkl4
