#include "platform/controls/cw_knob.h"

#include "base/number_text.h"
#include "platform/windows/colours.h"

#include <QEvent>
#include <QLinearGradient>
#include <QPaintEvent>
#include <QPainter>
#include <QRadialGradient>
#include <QTransform>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace orbkl4 {

namespace {

// Radii as shares of the dial's own.
constexpr double faceRadius = 0.93;
constexpr double markOuter = 0.88;
constexpr double markInner = 0.79;
constexpr double subMarkInner = 0.83;
constexpr double numberRadius = 0.665;
constexpr double needleTip = 0.80;
constexpr double needleTail = 0.18;
constexpr double hubOuter = 0.075;
constexpr double hubInner = 0.04;
constexpr double numberSize = 0.107;
constexpr double captionPlace = 0.36;

/// The point at `radius` from the origin, `degrees` clockwise from the top.
QPointF OnCircle(double degrees, double radius) {
    const double radians = degrees * std::numbers::pi / 180;
    return {radius * std::sin(radians), -radius * std::cos(radians)};
}

}  // namespace

CWKnob::CWKnob(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void CWKnob::SetAxis(const Axis& axis, Sweep sweep) {
    axis_ = axis;
    sweep_ = sweep;
    face_.Forget();
    update();
}

void CWKnob::Caption(const QString& caption) {
    caption_ = caption;
    face_.Forget();
    update();
}

void CWKnob::Value(double value) {
    value_ = value;
    repaint_.Mark();
    Q_EMIT ValueChanged(value);
}

double CWKnob::NeedleDegrees() const { return DegreesOf(value_); }

double CWKnob::DegreesOf(double value) const {
    const double sweep = sweep_ == Sweep::FullCircle ? 360 : 180;
    return (axis_.Fraction(value) - 0.5) * sweep;
}

double CWKnob::Radius() const { return std::min(width(), height()) / 2.0 - 2; }

QPointF CWKnob::Centre() const { return QRectF(rect()).center(); }

QSize CWKnob::sizeHint() const { return {300, 300}; }

QSize CWKnob::minimumSizeHint() const { return {140, 140}; }

void CWKnob::changeEvent(QEvent* event) {
    const auto type = event->type();
    if (type == QEvent::FontChange || type == QEvent::PaletteChange) face_.Forget();
    QWidget::changeEvent(event);
}

QPolygonF CWKnob::NeedleShape() const {
    const double radius = Radius();
    const double half = radius * 0.034;
    return {{QPointF(0, -radius * needleTip), QPointF(half, -radius * 0.05),
             QPointF(half * 1.2, radius * needleTail), QPointF(-half * 1.2, radius * needleTail),
             QPointF(-half, -radius * 0.05)}};
}

QRect CWKnob::PointerBox() const {
    QTransform turned = QTransform::fromTranslate(Centre().x(), Centre().y());
    turned.rotate(NeedleDegrees());
    constexpr double soft = 2;  // for antialiased edges
    return turned.map(NeedleShape())
        .boundingRect()
        .adjusted(-soft, -soft, soft, soft)
        .toAlignedRect();
}

void CWKnob::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    face_.Draw(painter, event->rect(), PointerBox(), [this](QPainter& onFace) {
        onFace.translate(Centre());
        PaintFace(onFace);
        PaintMarks(onFace);
        PaintNumbers(onFace);
    });
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(Centre());
    PaintNeedle(painter);
}

void CWKnob::PaintFace(QPainter& painter) const {
    const double radius = Radius();
    painter.setPen(Qt::NoPen);
    QLinearGradient bezel(-radius * 0.7, -radius * 0.7, radius * 0.7, radius * 0.7);
    bezel.setColorAt(0, colours::bezelLight());
    bezel.setColorAt(0.5, colours::bezelMiddle());
    bezel.setColorAt(1, colours::bezelDark());
    painter.setBrush(bezel);
    painter.drawEllipse(QPointF(), radius, radius);
    QRadialGradient face(0, -radius * 0.3, radius * 1.3);
    face.setColorAt(0, colours::dialFace());
    face.setColorAt(1, colours::dialEdge());
    painter.setBrush(face);
    painter.setPen(QPen(QColor(0x0D, 0x12, 0x18), radius * 0.012));
    painter.drawEllipse(QPointF(), radius * faceRadius, radius * faceRadius);
}

void CWKnob::PaintMarks(QPainter& painter) const {
    const double radius = Radius();
    const QColor ink = isEnabled() ? colours::dialMark() : colours::dialDimmed();
    const auto strokes = [&](double distance, double inner, double width) {
        painter.setPen(QPen(ink, radius * width, Qt::SolidLine, Qt::FlatCap));
        for (const double value : axis_.Multiples(distance)) {
            const double degrees = DegreesOf(value);
            painter.drawLine(OnCircle(degrees, radius * inner),
                             OnCircle(degrees, radius * markOuter));
        }
    };
    if (sweep_ == Sweep::HalfCircle) {
        const QPointF corner(radius * markOuter, radius * markOuter);
        painter.setPen(QPen(ink, radius * 0.009));
        painter.drawArc(QRectF(-corner, corner), 0, 180 * 16);
    }
    strokes(axis_.subMarks, subMarkInner, 0.009);
    strokes(axis_.marks, markInner, 0.018);
}

void CWKnob::PaintNumbers(QPainter& painter) const {
    const double radius = Radius();
    QFont font = painter.font();
    font.setPixelSize(std::max(static_cast<int>(radius * numberSize), 7));
    painter.setFont(font);
    painter.setPen(isEnabled() ? colours::dialMark() : colours::dialDimmed());
    const auto write = [&](const QPointF& place, const QString& text) {
        QRectF box(0, 0, radius, radius * 0.2);
        box.moveCenter(place);
        painter.drawText(box, Qt::AlignCenter, text);
    };
    const std::vector<double> marks = axis_.Multiples(axis_.marks);
    // -180 and 180 are at the same place, where only one is written.
    const bool endsMeet = sweep_ == Sweep::FullCircle && marks.size() > 1 &&
                          DegreesOf(marks.back()) - DegreesOf(marks.front()) > 359;
    for (const double value : marks) {
        if (endsMeet && value == marks.front()) continue;
        write(OnCircle(DegreesOf(value), radius * numberRadius),
              QString::fromStdString(ScreenText(value)));
    }
    painter.setPen(colours::dialCaption());
    write({0, radius * captionPlace}, caption_);
}

void CWKnob::PaintNeedle(QPainter& painter) const {
    painter.rotate(NeedleDegrees());
    painter.setPen(Qt::NoPen);
    painter.setBrush(isEnabled() ? colours::needle() : colours::dialDimmed());
    painter.drawPolygon(NeedleShape());
    const auto disc = [&](double radius, const QColor& colour) {
        painter.setBrush(colour);
        painter.drawEllipse(QPointF(), radius, radius);
    };
    disc(Radius() * hubOuter, QColor(0xD7, 0xDD, 0xE4));
    disc(Radius() * hubInner, QColor(0x3A, 0x45, 0x52));
}

}  // namespace orbkl4
