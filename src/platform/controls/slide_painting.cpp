#include "platform/controls/slide_painting.h"

#include "platform/windows/colours.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>

namespace orbkl4 {

namespace {

/// The box around the part of the groove from `from` to `to`.
QRectF GrooveBox(const QPointF& from, const QPointF& to, double width) {
    const double half = width / 2;
    return QRectF(from, to).normalized().adjusted(-half, -half, half, half);
}

/// The outline of a thermometer, tube and bulb.
QPainterPath GlassOutline(const QLineF& track) {
    using namespace slide;
    QPainterPath outline;
    outline.addRoundedRect(GrooveBox(track.p1() + QPointF(0, bulb), track.p2(), tube), tube / 2,
                           tube / 2);
    QPainterPath ball;
    ball.addEllipse(track.p1() + QPointF(0, bulb + 1), bulb, bulb);
    return outline.united(ball);
}

}  // namespace

void PaintGroove(QPainter& painter, const QLineF& track, bool enabled) {
    painter.setPen(QPen(colours::line(), 1));
    painter.setBrush(enabled ? colours::base() : colours::disabledBase());
    const double round = slide::groove / 2;
    painter.drawRoundedRect(GrooveBox(track.p1(), track.p2(), slide::groove), round, round);
}

void PaintLevel(QPainter& painter, const QLineF& track, const QPointF& place, bool enabled) {
    if (place == track.p1()) return;
    painter.setPen(Qt::NoPen);
    painter.setBrush(enabled ? colours::accent() : colours::line());
    const double width = slide::groove - 2;
    painter.drawRoundedRect(GrooveBox(track.p1(), place, width), width / 2, width / 2);
}

void PaintArrow(QPainter& painter, const QPointF& place, bool vertical, bool enabled) {
    painter.save();
    painter.translate(place);
    if (!vertical) painter.rotate(90);
    const double near = slide::groove / 2 + 1;
    const double far = near + slide::pointer;
    const double half = slide::pointer * 0.55;
    painter.setPen(Qt::NoPen);
    painter.setBrush(enabled ? colours::ink() : colours::disabledInk());
    painter.drawPolygon(QPolygonF{{QPointF(near, 0), QPointF(far, -half), QPointF(far, half)}});
    painter.restore();
}

void PaintThumb(QPainter& painter, const QPointF& place, bool vertical, bool focus, bool enabled) {
    constexpr double thickness = 7;
    QRectF thumb(0, 0, vertical ? 2 * slide::pointer : 2 * thickness,
                 vertical ? 2 * thickness : 2 * slide::pointer);
    thumb.moveCenter(place);
    if (focus) {
        QColor ring = colours::accent();
        ring.setAlpha(90);
        painter.setPen(QPen(ring, 3));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(thumb.adjusted(-2, -2, 2, 2), 6, 6);
    }
    QLinearGradient metal(thumb.topLeft(), thumb.bottomLeft());
    metal.setColorAt(0, colours::thumbLight());
    metal.setColorAt(1, colours::thumbDark());
    painter.setPen(QPen(focus ? colours::accent() : colours::disabledInk(), 1));
    painter.setBrush(metal);
    painter.drawRoundedRect(thumb, 4, 4);
    const QPointF along =
        vertical ? QPointF(slide::pointer - 5, 0) : QPointF(0, slide::pointer - 5);
    painter.setPen(QPen(enabled ? colours::accent() : colours::disabledInk(), 2));
    painter.drawLine(place - along, place + along);
}

void PaintGlass(QPainter& painter, const QLineF& track) {
    const QPainterPath outline = GlassOutline(track);
    const QRectF box = outline.boundingRect();
    QLinearGradient glass(box.left(), 0, box.right(), 0);
    glass.setColorAt(0, colours::glassShade());
    glass.setColorAt(0.4, colours::glassLight());
    glass.setColorAt(1, colours::glassShade());
    painter.setPen(QPen(colours::glassEdge(), 1.2));
    painter.setBrush(glass);
    painter.drawPath(outline);
}

void PaintFluid(QPainter& painter, const QLineF& track, const QPointF& place, bool enabled) {
    const QPointF middle = track.p1() + QPointF(0, slide::bulb + 1);
    const double radius = slide::bulb - 4.5;
    painter.setPen(Qt::NoPen);
    const QColor fluid = enabled ? colours::fluid() : colours::line();
    painter.setBrush(fluid);
    const double width = slide::tube - 7;
    painter.drawRoundedRect(GrooveBox(middle, place + QPointF(0, width / 2), width), width / 2, 2);
    QRadialGradient ball(middle, radius, middle - QPointF(radius / 3, radius / 3));
    ball.setColorAt(0, fluid.lighter(135));
    ball.setColorAt(0.5, fluid);
    ball.setColorAt(1, fluid.darker(130));
    painter.setBrush(ball);
    painter.drawEllipse(middle, radius, radius);
    painter.setBrush(QColor(255, 255, 255, 110));
    painter.drawRoundedRect(QRectF(track.x1() - width / 2 + 1.5, place.y() + 3, 2,
                                   std::max(0.0, track.y1() - place.y() - 3)),
                            0.8, 0.8);
}

}  // namespace orbkl4
