#include "main_window/screens/artwork.h"
#include "platform/windows/colours.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>
#include <QTransform>

#include <algorithm>
#include <cmath>

namespace orbkl4 {

namespace {

// The size of the housing: x runs to the lower right of the picture, y to the lower left, z up.
constexpr double sizeX = 3.0;
constexpr double sizeY = 2.2;
constexpr double sizeZ = 0.95;

// The size of the whole picture, in the same unit.
constexpr QRectF extent{-2.35, -1.8, 5.4, 4.75};

/// The point of the picture that shows a point of the housing.
QPointF Place(double x, double y, double z) {
    constexpr double across = 0.8660254037844386;  // cosine of 30 degrees
    constexpr double down = 0.5;                   // and its sine
    return {(x - y) * across, (x + y) * down - z};
}

/// Maps a face with its corner at `corner` and its edges along `right` and `down` to the picture.
QTransform FaceTransform(const QPointF& corner, const QPointF& right, const QPointF& down) {
    return {right.x(), right.y(), down.x(), down.y(), corner.x(), corner.y()};
}

QTransform TopFace() { return FaceTransform(Place(0, 0, sizeZ), Place(1, 0, 0), Place(0, 1, 0)); }

QTransform LeftFace() {
    return FaceTransform(Place(0, sizeY, sizeZ), Place(1, 0, 0), Place(0, 0, -1));
}

QTransform RightFace() {
    return FaceTransform(Place(sizeX, sizeY, sizeZ), -Place(0, 1, 0), Place(0, 0, -1));
}

QLinearGradient Fade(const QPointF& from, const QPointF& to, const QColor& start,
                     const QColor& end) {
    QLinearGradient fade(from, to);
    fade.setColorAt(0, start);
    fade.setColorAt(1, end);
    return fade;
}

void PaintShadow(QPainter& painter) {
    painter.save();
    painter.setTransform(FaceTransform(Place(0, 0, 0), Place(1, 0, 0), Place(0, 1, 0)), true);
    painter.translate(sizeX / 2 + 0.12, sizeY / 2 + 0.12);
    painter.scale(sizeX * 0.72, sizeY * 0.78);
    QRadialGradient shadow(0, 0, 1);
    shadow.setColorAt(0, QColor(20, 30, 45, 150));
    shadow.setColorAt(0.65, QColor(20, 30, 45, 80));
    shadow.setColorAt(1, QColor(20, 30, 45, 0));
    painter.setBrush(shadow);
    painter.drawEllipse(QPointF(), 1, 1);
    painter.restore();
}

void PaintLid(QPainter& painter) {
    painter.save();
    painter.setTransform(TopFace(), true);
    painter.setBrush(
        Fade({0, 0}, {sizeX, sizeY}, QColor(0x6A, 0x97, 0xC9), QColor(0x35, 0x62, 0x97)));
    painter.drawRoundedRect(QRectF(0, 0, sizeX, sizeY), 0.06, 0.06);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(255, 255, 255, 60), 0.025));
    painter.drawRoundedRect(QRectF(0.1, 0.1, sizeX - 0.2, sizeY - 0.2), 0.1, 0.1);
    for (const double x : {0.3, sizeX - 0.3}) {
        for (const double y : {0.3, sizeY - 0.3}) {
            const QPointF screw(x, y);
            painter.setPen(QPen(QColor(0x22, 0x42, 0x66), 0.02));
            painter.setBrush(Fade(screw - QPointF(0.1, 0.1), screw + QPointF(0.1, 0.1),
                                  QColor(0xF4, 0xF6, 0xF8), QColor(0x8D, 0x98, 0xA5)));
            painter.drawEllipse(screw, 0.11, 0.11);
            painter.setPen(QPen(QColor(0x4A, 0x55, 0x62), 0.03));
            painter.drawLine(screw - QPointF(0.05, 0.05), screw + QPointF(0.05, 0.05));
            painter.drawLine(screw - QPointF(0.05, -0.05), screw + QPointF(0.05, -0.05));
        }
    }
    painter.restore();
}

/// The side with the name.
void PaintLeftSide(QPainter& painter) {
    painter.save();
    painter.setTransform(LeftFace(), true);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Fade({0, 0}, {0, sizeZ}, QColor(0x2F, 0x5A, 0x8D), QColor(0x1F, 0x41, 0x69)));
    painter.drawRect(QRectF(0, 0, sizeX, sizeZ));
    painter.setBrush(QColor(255, 255, 255, 70));
    painter.drawRect(QRectF(0, 0, sizeX, 0.03));
    QFont font = painter.font();
    font.setBold(true);
    constexpr int fineness = 100;  // fonts come in whole pixels, so they are set in hundredths
    font.setPixelSize(static_cast<int>(0.4 * fineness));
    painter.setFont(font);
    painter.scale(1.0 / fineness, 1.0 / fineness);
    painter.setPen(QColor(0xE9, 0xEF, 0xF6));
    painter.drawText(QRectF(0, 0, sizeX * fineness, sizeZ * fineness), Qt::AlignCenter, "ORB-KL4");
    painter.restore();
}

/// The side with the nine-pole connector.
void PaintRightSide(QPainter& painter) {
    painter.save();
    painter.setTransform(RightFace(), true);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Fade({0, 0}, {0, sizeZ}, QColor(0x24, 0x49, 0x76), QColor(0x16, 0x31, 0x52)));
    painter.drawRect(QRectF(0, 0, sizeY, sizeZ));
    painter.setBrush(QColor(255, 255, 255, 45));
    painter.drawRect(QRectF(0, 0, sizeY, 0.03));
    painter.translate(sizeY / 2, sizeZ / 2);
    painter.setBrush(Fade({0, -0.3}, {0, 0.3}, QColor(0xE8, 0xEC, 0xF0), QColor(0x9A, 0xA5, 0xB1)));
    painter.drawRoundedRect(QRectF(-0.85, -0.28, 1.7, 0.56), 0.08, 0.08);
    painter.setBrush(Fade({0, -0.2}, {0, 0.2}, QColor(0x6C, 0x77, 0x84), QColor(0xC9, 0xD0, 0xD8)));
    const QPolygonF shell{
        {QPointF(-0.56, -0.2), QPointF(0.56, -0.2), QPointF(0.47, 0.2), QPointF(-0.47, 0.2)}};
    painter.drawPolygon(shell);
    painter.setBrush(QColor(0x1B, 0x22, 0x2B));
    painter.drawPolygon(QTransform::fromScale(0.88, 0.78).map(shell));
    painter.setBrush(QColor(0xE3, 0xC0, 0x6A));
    constexpr int poles = 9;
    for (int pole = 0; pole < poles; ++pole) {
        const bool upper = pole < 5;
        const double x = upper ? (pole - 2) * 0.19 : (pole - 6.5) * 0.19;
        painter.drawEllipse(QPointF(x, upper ? -0.075 : 0.075), 0.035, 0.035);
    }
    painter.setPen(QPen(QColor(0x6F, 0x7A, 0x87), 0.02));
    painter.setBrush(QColor(0xC4, 0xCC, 0xD5));
    for (const double x : {-0.7, 0.7}) painter.drawEllipse(QPointF(x, 0), 0.075, 0.075);
    painter.restore();
}

void PaintAxis(QPainter& painter, const QPointF& from, const QPointF& to, const QColor& colour,
               const QString& name) {
    constexpr double headLength = 0.3;
    constexpr double headHalf = 0.12;
    const QColor border = colours::axisBorder();
    const QPointF way = to - from;
    const double length = std::hypot(way.x(), way.y());
    const QPointF along = way / length;
    const QPointF across(-along.y(), along.x());
    const QPointF neck = to - along * headLength;
    const QPolygonF head{{to, neck + across * headHalf, neck - across * headHalf}};
    // A border keeps the colours apart from the lid's.
    painter.setBrush(border);
    painter.setPen(QPen(border, 0.15, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(from, neck);
    painter.setPen(QPen(border, 0.07, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolygon(head);
    painter.setPen(QPen(colour, 0.08, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(from, neck);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawPolygon(head);
    painter.save();
    constexpr int fineness = 100;
    QFont font = painter.font();
    font.setBold(true);
    font.setPixelSize(static_cast<int>(0.34 * fineness));
    painter.setFont(font);
    painter.translate(to + along * 0.24);
    painter.scale(1.0 / fineness, 1.0 / fineness);
    painter.setPen(colour);
    painter.drawText(QRectF(-40, -40, 80, 80), Qt::AlignCenter, name);
    painter.restore();
}

/// The right-handed axes, from the middle of the lid over its far edges.
void PaintAxes(QPainter& painter) {
    const double x = sizeX / 2;
    const double y = sizeY / 2;
    const QPointF middle = Place(x, y, sizeZ);
    PaintAxis(painter, middle, Place(x, y - 2.35, sizeZ), colours::axisX(), "X");
    PaintAxis(painter, middle, Place(x - 2.45, y, sizeZ), colours::axisY(), "Y");
    PaintAxis(painter, middle, Place(x, y, sizeZ + 1.75), colours::axisZ(), "Z");
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    painter.drawEllipse(middle, 0.1, 0.1);
}

}  // namespace

void PaintDevice(QPainter& painter, const QRectF& box) {
    const double scale = std::min(box.width() / extent.width(), box.height() / extent.height());
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(box.center());
    painter.scale(scale, scale);
    painter.translate(-extent.center());
    painter.setPen(Qt::NoPen);
    PaintShadow(painter);
    PaintLeftSide(painter);
    PaintRightSide(painter);
    painter.setPen(Qt::NoPen);
    PaintLid(painter);
    PaintAxes(painter);
    painter.restore();
}

}  // namespace orbkl4
