#include "platform/windows/resize.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>

#include <algorithm>
#include <cmath>

namespace orbkl4 {

namespace {

constexpr double usualDpi = 96;
constexpr double mostGrowth = 2;
constexpr double growthStep = 0.05;

}  // namespace

double DisplayScale(const QWidget& widget) { return widget.logicalDpiX() / usualDpi; }

ReSize::ReSize(QWidget* screen) : QObject(screen), screen_(screen) {
    setObjectName(QStringLiteral("ReSize1"));
    screen->installEventFilter(this);
}

void ReSize::DesignSize(QSizeF size) {
    designSize_ = size;
    if (!screen_->isWindow()) FitFont();
}

bool ReSize::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize && !screen_->isWindow()) FitFont();
    return QObject::eventFilter(watched, event);
}

void ReSize::FitFont() {
    const QSizeF design = designSize_ * DisplayScale(*screen_);
    const double room =
        std::min(screen_->width() / design.width(), screen_->height() / design.height());
    const double steps = std::floor(std::clamp(room, 1.0, mostGrowth) / growthStep);
    const double factor = std::max(1.0, steps * growthStep);
    if (factor == factor_) return;
    factor_ = factor;
    QFont font = QApplication::font();
    font.setPointSizeF(font.pointSizeF() * factor);
    screen_->setFont(font);
}

}  // namespace orbkl4
