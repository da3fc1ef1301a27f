#include "platform/controls/deferred_update.h"

#include <QAccessible>
#include <QApplication>
#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <array>
#include <utility>
#include <vector>

namespace orbkl4 {

namespace {

using Pace = DeferredUpdate::Pace;

constexpr int IntervalOf(Pace pace) { return pace == Pace::Needle ? 16 : 40; }

/// Those of one pace that wait for their repainting, and what wakes them.
struct Queue {
    std::vector<DeferredUpdate*> waiting;
    QPointer<QTimer> timer;
};

Queue& QueueOf(Pace pace) {
    static std::array<Queue, 2> queues;
    return queues.at(static_cast<std::size_t>(pace));
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
    if (queued_) std::erase(QueueOf(pace_).waiting, this);
}

void DeferredUpdate::Enqueue() {
    Queue& queue = QueueOf(pace_);
    if (queue.timer == nullptr) {
        queue.timer = new QTimer(qApp);
        queue.timer->setSingleShot(true);
        queue.timer->setTimerType(Qt::PreciseTimer);
        queue.timer->setInterval(IntervalOf(pace_));
        QObject::connect(queue.timer, &QTimer::timeout, [pace = pace_] { Flush(pace); });
    }
    queued_ = true;
    queue.waiting.push_back(this);
    if (!queue.timer->isActive()) queue.timer->start();
}

void DeferredUpdate::Repaint() {
    queued_ = false;
    if (changing_) {
        widget_->update(std::exchange(stale_, {}) | changing_());
    } else {
        widget_->update();
    }
    TellReader(widget_);
}

void DeferredUpdate::Flush(Pace pace) {
    std::vector<DeferredUpdate*>& waiting = QueueOf(pace).waiting;
    for (DeferredUpdate* update : waiting) update->Repaint();
    waiting.clear();
}

}  // namespace orbkl4
