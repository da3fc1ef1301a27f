#include "platform/controls/deferred_update.h"

#include <QAccessible>
#include <QApplication>
#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <chrono>
#include <utility>
#include <vector>

namespace orbkl4 {

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr milliseconds interval(40);

/// For how long a repainting that is due waits for a change that it can follow.
constexpr milliseconds patience(10);

/// Those that wait for their repainting, and what wakes them.
struct Queue {
    std::vector<DeferredUpdate*> waiting;
    QPointer<QTimer> timer;  ///< for changes that no other follows
    Clock::time_point lastFlush;
    bool flushPosted = false;
};

Queue& TheQueue() {
    static Queue queue;
    return queue;
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
    if (queued_) std::erase(TheQueue().waiting, this);
}

void DeferredUpdate::Enqueue() {
    Queue& queue = TheQueue();
    if (queue.timer == nullptr) {
        queue.timer = new QTimer(qApp);
        queue.timer->setSingleShot(true);
        queue.timer->setTimerType(Qt::PreciseTimer);
        queue.timer->setInterval(interval + patience);
        QObject::connect(queue.timer, &QTimer::timeout, [] { Flush(); });
        queue.flushPosted = false;
    }
    queued_ = true;
    leads_ = queue.waiting.empty();
    queue.waiting.push_back(this);
    if (!queue.timer->isActive()) queue.timer->start();
}

void DeferredUpdate::FlushIfDue() {
    Queue& queue = TheQueue();
    if (queue.flushPosted || Clock::now() - queue.lastFlush < interval) return;
    queue.flushPosted = true;
    QMetaObject::invokeMethod(
        queue.timer, [] { Flush(); }, Qt::QueuedConnection);
}

void DeferredUpdate::Repaint() {
    queued_ = leads_ = false;
    if (changing_) {
        widget_->update(std::exchange(stale_, {}) | changing_());
    } else {
        widget_->update();
    }
    TellReader(widget_);
}

void DeferredUpdate::Flush() {
    Queue& queue = TheQueue();
    for (DeferredUpdate* update : queue.waiting) update->Repaint();
    queue.waiting.clear();
    queue.timer->stop();
    queue.flushPosted = false;
    queue.lastFlush = Clock::now();
}

}  // namespace orbkl4
