#include "platform/controls/picture.h"

#include <QPainter>

namespace orbkl4 {

Picture::Picture(ArtworkPainter paint, const QString& content, QSize naturalSize, QWidget* parent)
    : QWidget(parent), paint_(paint), naturalSize_(naturalSize) {
    setAccessibleName(content);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void Picture::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    paint_(painter, rect());
}

}  // namespace orbkl4
