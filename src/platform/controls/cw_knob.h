#pragma once

#include "platform/controls/axis.h"
#include "platform/controls/deferred_update.h"
#include "platform/controls/painted_face.h"

#include <QPolygonF>
#include <QString>
#include <QWidget>

namespace orbkl4 {

/// A round dial with a needle, which ignores the mouse.
class CWKnob : public QWidget {
    Q_OBJECT
    Q_PROPERTY(double value READ Value WRITE Value NOTIFY ValueChanged)
    Q_PROPERTY(double minimum READ Minimum)
    Q_PROPERTY(double maximum READ Maximum)

  public:
    /// How much of the circle the axis covers; the middle of the axis is at the top.
    enum class Sweep { FullCircle, HalfCircle };

    /// A dial at 0 from -180 to 180 over the full circle.
    explicit CWKnob(QWidget* parent = nullptr);

    /// Gives the dial its axis (value range and distances of marks) and its sweep.
    void SetAxis(const Axis& axis, Sweep sweep);

    /// A short text on the face, such as the unit.
    void Caption(const QString& caption);

    double Minimum() const { return axis_.minimum; }  ///< The axis' lower end.
    double Maximum() const { return axis_.maximum; }  ///< The axis' upper end.

    /// The value as it was set, also beyond the axis.
    double Value() const { return value_; }

    /// Points at `value`, or at the end of the axis if it lies beyond, and raises `ValueChanged` at
    /// every call.
    void Value(double value);

    /// Where the needle points, in degrees clockwise from the top.
    double NeedleDegrees() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  Q_SIGNALS:
    /// The value has been set, changed or not.
    void ValueChanged(double value);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    double DegreesOf(double value) const;
    double Radius() const;
    QPointF Centre() const;
    QPolygonF NeedleShape() const;
    QRect PointerBox() const;
    void PaintFace(QPainter& painter) const;
    void PaintMarks(QPainter& painter) const;
    void PaintNumbers(QPainter& painter) const;
    void PaintNeedle(QPainter& painter) const;

    Axis axis_{-180, 180, 20, 10};
    Sweep sweep_ = Sweep::FullCircle;
    QString caption_;
    double value_ = 0;
    PaintedFace face_{this};
    DeferredUpdate repaint_{this, [this] { face_.MovePointer(PointerBox()); }};
};

}  // namespace orbkl4
