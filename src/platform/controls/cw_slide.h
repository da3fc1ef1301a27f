#pragma once

#include "platform/controls/axis.h"
#include "platform/controls/deferred_update.h"
#include "platform/controls/painted_face.h"

#include <QLineF>
#include <QWidget>

namespace orbkl4 {

/// A pointer on a straight scale. It ignores mouse and keys unless it is made interactive.
class CWSlide : public QWidget {
    Q_OBJECT
    Q_PROPERTY(double value READ Value WRITE Value NOTIFY ValueChanged)
    Q_PROPERTY(double minimum READ Minimum)
    Q_PROPERTY(double maximum READ Maximum)
    Q_PROPERTY(double step READ Step)

  public:
    /// The appearance of the slide; a thermometer is vertical.
    enum class Look { Plain, Thermometer };

    /// A vertical slide at 0 from 0 to 100.
    explicit CWSlide(QWidget* parent = nullptr);

    /// Gives the slide its axis: value range and distances of marks.
    void SetAxis(const Axis& axis);

    /// Makes the slide horizontal or vertical.
    void Orientation(Qt::Orientation orientation);

    /// Gives the slide its appearance.
    void Style(Look look);

    /// Whether a thermometer shows no fluid, as there is no value to show; false at first.
    void Empty(bool empty);

    /// Lets the user move the pointer by mouse, wheel and keys, in steps of `step` (above 0) from
    /// the axis' lower end.
    void MakeInteractive(double step);

    /// Whether the user can move the pointer.
    bool Interactive() const { return step_ > 0; }

    double Minimum() const { return axis_.minimum; }  ///< The axis' lower end.
    double Maximum() const { return axis_.maximum; }  ///< The axis' upper end.
    double Step() const { return step_; }  ///< One step of the user, 0 if not interactive.

    /// The value as it was set, also beyond the axis.
    double Value() const { return value_; }

    /// Points at `value`, or at the end of the axis if it lies beyond, and raises `ValueChanged` if
    /// the value differs.
    void Value(double value);

    /// The middle of the pointer, in the widget's coordinates.
    QPointF PointerPlace() const { return PlaceOf(value_); }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  Q_SIGNALS:
    /// The value has changed, by code or by the user; raised before the change returns.
    void ValueChanged(double value);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override { QWidget::resizeEvent(event), Forget(); }
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override { QWidget::focusInEvent(event), update(); }
    void focusOutEvent(QFocusEvent* event) override { QWidget::focusOutEvent(event), update(); }

  private:
    bool Vertical() const { return orientation_ == Qt::Vertical; }
    /// `pixels` of the usual font's size, in the size of the slide's own font.
    double Scaled(double pixels) const { return scale_ * pixels; }
    double GrooveWidth() const;
    double PointerRoom() const;  // from the middle of the groove to the side without marks
    const QLineF& Track() const;
    QLineF MakeTrack() const;
    QRect PointerBox() const;
    void Forget();
    QPointF PlaceOf(double value) const { return Track().pointAt(axis_.Fraction(value)); }
    void MoveTo(double value);
    void MoveBySteps(double steps);
    void MoveToMouse(const QPointF& mouse);
    void PaintFace(QPainter& painter) const;
    void PaintMarks(QPainter& painter) const;
    void PaintPointer(QPainter& painter) const;

    Axis axis_;
    Qt::Orientation orientation_ = Qt::Vertical;
    Look look_ = Look::Plain;
    double value_ = 0;
    double step_ = 0;
    bool empty_ = false;
    QPointF grip_;  ///< from the pointer's middle to where the mouse was pressed on it
    bool dragging_ = false;
    int wheelRest_ = 0;     ///< turn of less than a step, in eighths of a degree
    double scale_ = 1;      ///< growth with the font of all that is painted
    mutable QLineF track_;  ///< a cache, since measuring labels takes long; null if stale
    PaintedFace face_{this};
    DeferredUpdate repaint_{this, [this] { face_.MovePointer(PointerBox()); }};
};

}  // namespace orbkl4
