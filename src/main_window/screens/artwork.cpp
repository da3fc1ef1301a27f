#include "main_window/screens/artwork.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>

#include <algorithm>

namespace orbkl4 {

namespace {

/// The largest square in the middle of `box`.
QRectF Square(const QRectF& box) {
    const double side = std::min(box.width(), box.height());
    QRectF square(0, 0, side, side);
    square.moveCenter(box.center());
    return square;
}

/// The part of the ball between the heights `top` and `bottom`. A path instead of a clip, which the
/// writers of vector graphics leave out.
QPainterPath BallBetween(double top, double bottom) {
    QPainterPath ball;
    ball.addEllipse(QPointF(), 0.8, 0.8);
    QPainterPath band;
    band.addRect(QRectF(QPointF(-1, top), QPointF(1, bottom)));
    return ball.intersected(band);
}

/// Sky and ground, tilted as in a turn, in the unit circle.
void PaintBall(QPainter& painter) {
    constexpr double bankDegrees = -18;
    painter.save();
    painter.rotate(bankDegrees);
    QLinearGradient sky(0, -0.8, 0, 0);
    sky.setColorAt(0, QColor(0x1B, 0x62, 0xA8));
    sky.setColorAt(1, QColor(0x6F, 0xB7, 0xEA));
    painter.fillPath(BallBetween(-1, 0.1), sky);
    QLinearGradient ground(0, 0, 0, 0.9);
    ground.setColorAt(0, QColor(0xA8, 0x6A, 0x2C));
    ground.setColorAt(1, QColor(0x5B, 0x36, 0x14));
    painter.fillPath(BallBetween(0.1, 1), ground);
    painter.fillPath(BallBetween(0.08, 0.13), Qt::white);
    painter.setPen(QPen(QColor(255, 255, 255, 200), 0.035, Qt::SolidLine, Qt::RoundCap));
    for (const double y : {-0.14, -0.36, 0.34}) {
        const double half = y == -0.36 ? 0.26 : 0.16;
        painter.drawLine(QPointF(-half, y), QPointF(half, y));
    }
    painter.restore();
    QRadialGradient shade(-0.25, -0.35, 1.2);
    shade.setColorAt(0, QColor(255, 255, 255, 70));
    shade.setColorAt(0.45, QColor(255, 255, 255, 0));
    shade.setColorAt(1, QColor(0, 0, 0, 120));
    painter.setPen(Qt::NoPen);
    painter.setBrush(shade);
    painter.drawEllipse(QPointF(), 0.8, 0.8);
}

}  // namespace

void PaintEmblem(QPainter& painter, const QRectF& box) {
    const QRectF square = Square(box);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(square.center());
    painter.scale(square.width() / 2, square.height() / 2);
    QLinearGradient bezel(-0.7, -0.7, 0.7, 0.7);
    bezel.setColorAt(0, QColor(0x5A, 0x67, 0x76));
    bezel.setColorAt(1, QColor(0x1B, 0x23, 0x2D));
    painter.setPen(Qt::NoPen);
    painter.setBrush(bezel);
    painter.drawEllipse(QPointF(), 0.97, 0.97);
    PaintBall(painter);
    // The fixed wings.
    painter.setBrush(Qt::NoBrush);
    painter.setPen(
        QPen(QColor(0xFF, 0xB0, 0x2E), 0.11, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(QPolygonF{{QPointF(-0.56, 0.1), QPointF(-0.22, 0.1), QPointF(0, 0.28),
                                    QPointF(0.22, 0.1), QPointF(0.56, 0.1)}});
    painter.restore();
}

QIcon ProgramIcon() { return PaintedIcon(PaintEmblem); }

}  // namespace orbkl4
