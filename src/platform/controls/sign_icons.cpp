#include "platform/controls/sign_icons.h"

#include "platform/windows/painted_icon.h"

#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>

#include <algorithm>

namespace orbkl4 {

namespace {

constexpr QColor blue{0x1F, 0x6F, 0xB8};
constexpr QColor amber{0xF2, 0xA9, 0x00};
constexpr QColor amberInk{0x33, 0x26, 0x00};
constexpr QColor red{0xC9, 0x2A, 0x2A};

/// Makes `painter` paint into the largest square in the middle of `box`, from -1 to 1.
void UseUnitSquare(QPainter& painter, const QRectF& box) {
    const double half = std::min(box.width(), box.height()) / 2;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(box.center());
    painter.scale(half, half);
}

/// Fills `letter` with `colour`, `height` high around `centre`.
void PaintLetter(QPainter& painter, QChar letter, const QPointF& centre, double height,
                 const QColor& colour) {
    constexpr int anySize = 100;
    QFont font;
    font.setBold(true);
    font.setPixelSize(anySize);
    QPainterPath path;
    path.addText(0, 0, font, letter);
    const QRectF box = path.boundingRect();
    painter.translate(centre);
    painter.scale(height / box.height(), height / box.height());
    painter.translate(-box.center());
    painter.fillPath(path, colour);
}

void PaintDisc(QPainter& painter, const QColor& colour) {
    constexpr double radius = 0.92;
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawEllipse(QPointF(), radius, radius);
}

void PaintLetterOnDisc(QPainter& painter, const QRectF& box, QChar letter) {
    constexpr double letterHeight = 1.05;
    painter.save();
    UseUnitSquare(painter, box);
    PaintDisc(painter, blue);
    PaintLetter(painter, letter, {}, letterHeight, Qt::white);
    painter.restore();
}

void PaintInformation(QPainter& painter, const QRectF& box) {
    PaintLetterOnDisc(painter, box, 'i');
}

void PaintQuestion(QPainter& painter, const QRectF& box) { PaintLetterOnDisc(painter, box, '?'); }

void PaintWarning(QPainter& painter, const QRectF& box) {
    painter.save();
    UseUnitSquare(painter, box);
    painter.setPen(QPen(amber, 0.25, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(amber);
    painter.drawPolygon(QPolygonF{{QPointF(0, -0.75), QPointF(0.82, 0.7), QPointF(-0.82, 0.7)}});
    PaintLetter(painter, '!', {0, 0.18}, 0.85, amberInk);
    painter.restore();
}

void PaintCritical(QPainter& painter, const QRectF& box) {
    constexpr double arm = 0.36;
    painter.save();
    UseUnitSquare(painter, box);
    PaintDisc(painter, red);
    painter.setPen(QPen(Qt::white, 0.22, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(-arm, -arm), QPointF(arm, arm));
    painter.drawLine(QPointF(-arm, arm), QPointF(arm, -arm));
    painter.restore();
}

}  // namespace

QIcon SignIcon(QStyle::StandardPixmap standard) {
    switch (standard) {
        case QStyle::SP_MessageBoxInformation: return PaintedIcon(PaintInformation);
        case QStyle::SP_MessageBoxQuestion: return PaintedIcon(PaintQuestion);
        case QStyle::SP_MessageBoxWarning: return PaintedIcon(PaintWarning);
        case QStyle::SP_MessageBoxCritical: return PaintedIcon(PaintCritical);
        default: return {};
    }
}

}  // namespace orbkl4
