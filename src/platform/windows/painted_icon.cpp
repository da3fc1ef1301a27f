#include "platform/windows/painted_icon.h"

#include <QIconEngine>
#include <QPainter>
#include <QPixmap>

namespace orbkl4 {

namespace {

class PaintedIconEngine final : public QIconEngine {
  public:
    explicit PaintedIconEngine(ArtworkPainter artwork) : artwork_(artwork) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode /*mode*/,
               QIcon::State /*state*/) override {
        artwork_(*painter, rect);
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode /*mode*/, QIcon::State /*state*/) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        artwork_(painter, pixmap.rect());
        return pixmap;
    }

    QList<QSize> availableSizes(QIcon::Mode /*mode*/, QIcon::State /*state*/) override {
        QList<QSize> sizes;  // those that desktops ask for
        for (const int side : {16, 24, 32, 48, 64, 128, 256}) sizes += QSize(side, side);
        return sizes;
    }

    QIconEngine* clone() const override { return new PaintedIconEngine(*this); }

  private:
    ArtworkPainter artwork_;
};

}  // namespace

QIcon PaintedIcon(ArtworkPainter paint) { return QIcon(new PaintedIconEngine(paint)); }

}  // namespace orbkl4
