#include "platform/controls/painted_face.h"

#include <QPainter>

#include <cmath>

namespace orbkl4 {

PaintedFace::PaintedFace(QWidget* widget) : widget_(widget) {
    widget->setAttribute(Qt::WA_OpaquePaintEvent);
}

void PaintedFace::PaintBackground(QPainter& painter) const {
    QWidget* parent = widget_->isWindow() ? nullptr : widget_->parentWidget();
    painter.fillRect(widget_->rect(), widget_->palette().brush(QPalette::Window));
    if (parent == nullptr) return;
    parent->render(&painter, {}, widget_->geometry(), QWidget::DrawWindowBackground);
}

void PaintedFace::Draw(QPainter& painter, const QRect& area, const QRect& pointer,
                       const std::function<void(QPainter&)>& paint) {
    const qreal ratio = painter.device()->devicePixelRatioF();
    const QSizeF size = QSizeF(widget_->size()) * ratio;
    const QWidget* parent = widget_->parentWidget();
    const Circumstances now{
        .pixels = {static_cast<int>(std::ceil(size.width())),
                   static_cast<int>(std::ceil(size.height()))},
        .ratio = ratio,
        .place = widget_->pos(),
        .enabled = widget_->isEnabled(),
        .parentEnabled = parent == nullptr || parent->isEnabled(),
    };
    painted_ |= pointer;
    if (pixmap_.isNull() || now != made_) {
        made_ = now;
        pixmap_ = QPixmap(now.pixels);
        pixmap_.setDevicePixelRatio(ratio);
        pixmap_.fill(Qt::white);  // an opaque pixmap is drawn faster
        QPainter face(&pixmap_);
        PaintBackground(face);
        face.setRenderHint(QPainter::Antialiasing);
        face.setFont(widget_->font());
        paint(face);
    }
    painter.setClipRect(area);
    painter.drawPixmap(0, 0, pixmap_);
}

}  // namespace orbkl4
