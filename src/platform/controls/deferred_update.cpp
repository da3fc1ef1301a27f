#include "platform/controls/deferred_update.h"

#include <QAccessible>
#include <QApplication>
#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <vector>

namespace orbkl4 {

namespace {

constexpr int frameMilliseconds = 16;

std::vector<DeferredUpdate*>& Waiting() {
    static std::vector<DeferredUpdate*> waiting;
    return waiting;
}

/// Tells a screen reader of the value of the control that has the focus, not of all that stream by.
void TellReader(QWidget* widget) {
    if (!QAccessible::isActive() || !widget->hasFocus()) return;
    const QVariant value = widget->property("value");
    QAccessibleValueChangeEvent event(widget, value.isValid() ? value : widget->property("text"));
    QAccessible::updateAccessibility(&event);
}

}  // namespace

DeferredUpdate::~DeferredUpdate() {
    if (queued_) std::erase(Waiting(), this);
}

void DeferredUpdate::Enqueue() {
    static QPointer<QTimer> timer;
    if (timer == nullptr) {
        timer = new QTimer(qApp);
        timer->setSingleShot(true);
        timer->setTimerType(Qt::PreciseTimer);
        timer->setInterval(frameMilliseconds);
        QObject::connect(timer, &QTimer::timeout, &DeferredUpdate::Flush);
    }
    queued_ = true;
    Waiting().push_back(this);
    if (!timer->isActive()) timer->start();
}

void DeferredUpdate::Flush() {
    for (DeferredUpdate* update : Waiting()) {
        update->queued_ = false;
        update->widget_->update();
        TellReader(update->widget_);
    }
    Waiting().clear();
}

}  // namespace orbkl4
