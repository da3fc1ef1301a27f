#pragma once

#include <QPixmap>
#include <QWidget>

#include <functional>
#include <utility>

namespace orbkl4 {

/// The part of a control's picture that doesn't depend on its value, with the background of the
/// control, kept as a pixmap. A new value repaints only what its pointer covers.
class PaintedFace {
  public:
    /// The face of `widget`, which becomes opaque.
    explicit PaintedFace(QWidget* widget);

    /// Draws the face with `painter` inside `area`, before the pointer is painted on `pointer`.
    /// `paint` makes a new face if size, resolution, place or enabled state have changed.
    void Draw(QPainter& painter, const QRect& area, const QRect& pointer,
              const std::function<void(QPainter&)>& paint);

    /// Repaints where the pointer has been painted, and `pointer`, where it belongs now.
    void MovePointer(const QRect& pointer) {
        widget_->update(std::exchange(painted_, {}) | pointer);
    }

    /// Has a new face made at the next drawing.
    void Forget() { pixmap_ = {}; }

  private:
    /// What the face depends on besides the control's own properties.
    struct Circumstances {
        QSize pixels;
        qreal ratio = 0;
        QPoint place;
        bool enabled = true;
        bool parentEnabled = true;

        bool operator==(const Circumstances&) const = default;
    };

    void PaintBackground(QPainter& painter) const;

    QWidget* widget_;
    QPixmap pixmap_;
    Circumstances made_;
    QRect painted_;  ///< around all pointers painted since the last move
};

}  // namespace orbkl4
