#include "platform/controls/painted_face.h"

#include <QPainter>

namespace orbkl4 {

void PaintedFace::Draw(QPainter& painter, const QWidget& widget,
                       const std::function<void(QPainter&)>& paint) {
    const qreal ratio = painter.device()->devicePixelRatioF();
    const QSize pixels = (QSizeF(widget.size()) * ratio).toSize();
    if (pixmap_.size() != pixels || pixmap_.devicePixelRatio() != ratio ||
        enabled_ != widget.isEnabled()) {
        enabled_ = widget.isEnabled();
        pixmap_ = QPixmap(pixels);
        pixmap_.setDevicePixelRatio(ratio);
        pixmap_.fill(Qt::transparent);
        QPainter face(&pixmap_);
        face.setRenderHint(QPainter::Antialiasing);
        face.setFont(widget.font());
        paint(face);
    }
    painter.drawPixmap(0, 0, pixmap_);
}

}  // namespace orbkl4
