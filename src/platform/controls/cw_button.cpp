#include "platform/controls/cw_button.h"

#include "platform/windows/colours.h"

#include <QAccessible>
#include <QPainter>
#include <QRadialGradient>

#include <algorithm>

namespace orbkl4 {

namespace {

constexpr double diameter = 1.35;  // of a lamp, in heights of a line of text

struct Glass {
    QColor core;  ///< colour of the middle
    QColor rim;
};

Glass GlassOf(bool lit, bool enabled) {
    if (!enabled) return {colours::disabledBase(), colours::idleRim()};
    if (lit) return {colours::litCore(), colours::litRim()};
    return {colours::darkCore(), colours::darkRim()};
}

/// Paints a lamp into a square of `side` pixels at the painter's origin.
void PaintLamp(QPainter& painter, double side, bool lit, bool enabled) {
    const QPointF centre(side / 2, side / 2);
    const double radius = side / 2 - 1;
    const Glass glass = GlassOf(lit, enabled);
    painter.setPen(Qt::NoPen);
    if (lit && enabled) {
        QRadialGradient halo(centre, radius);
        halo.setColorAt(0.7, QColor(0x3C, 0xE0, 0x66, 150));
        halo.setColorAt(1, QColor(0x3C, 0xE0, 0x66, 0));
        painter.setBrush(halo);
        painter.drawEllipse(centre, radius, radius);
    }
    QLinearGradient bezel(0, 0, 0, side);
    bezel.setColorAt(0, colours::bezelDark());
    bezel.setColorAt(1, colours::bezelLight());
    painter.setBrush(bezel);
    painter.drawEllipse(centre, radius * 0.88, radius * 0.88);
    QRadialGradient body(centre, radius * 0.75, centre + QPointF(0, radius * 0.12));
    body.setColorAt(0, glass.core);
    body.setColorAt(1, glass.rim);
    painter.setBrush(body);
    painter.drawEllipse(centre, radius * 0.74, radius * 0.74);
    QLinearGradient gloss(0, side * 0.2, 0, side * 0.5);
    gloss.setColorAt(0, QColor(255, 255, 255, lit ? 190 : 110));
    gloss.setColorAt(1, QColor(255, 255, 255, 0));
    painter.setBrush(gloss);
    painter.drawEllipse(centre - QPointF(0, radius * 0.3), radius * 0.46, radius * 0.32);
}

}  // namespace

CWButton::CWButton(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void CWButton::Value(bool lit) {
    if (lit == value_) return;
    value_ = lit;
    repaint_.Mark();
    if (QAccessible::isActive()) {
        QAccessible::State changed;
        changed.checked = true;
        QAccessibleStateChangeEvent event(this, changed);
        QAccessible::updateAccessibility(&event);
    }
    Q_EMIT ValueChanged(lit);
}

QSize CWButton::sizeHint() const {
    const int side = qRound(fontMetrics().height() * diameter);
    return {side, side};
}

void CWButton::paintEvent(QPaintEvent* /*event*/) {
    const int side = std::min(width(), height());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate((width() - side) / 2.0, (height() - side) / 2.0);
    PaintLamp(painter, side, value_, isEnabled());
}

}  // namespace orbkl4
