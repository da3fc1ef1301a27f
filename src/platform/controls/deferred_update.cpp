#include "platform/controls/deferred_update.h"

#include <QAccessible>
#include <QApplication>
#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <array>
#include <chrono>
#include <utility>
#include <vector>

namespace orbkl4 {

namespace {

using Pace = DeferredUpdate::Pace;

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr milliseconds IntervalOf(Pace pace) {
    return milliseconds(pace == Pace::Needle ? 16 : 40);
}

/// For how long a repainting that is due waits for a change that it can follow.
constexpr milliseconds patience(10);

/// Those of one pace that wait for their repainting, and what wakes them.
struct Queue {
    std::vector<DeferredUpdate*> waiting;
    QPointer<QTimer> timer;  ///< for changes that no other follows
    Clock::time_point lastFlush;
    bool flushPosted = false;
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
        queue.timer->setInterval(IntervalOf(pace_) + patience);
        QObject::connect(queue.timer, &QTimer::timeout, [pace = pace_] { Flush(pace); });
        queue.flushPosted = false;
    }
    queued_ = true;
    leads_ = queue.waiting.empty();
    queue.waiting.push_back(this);
    if (!queue.timer->isActive()) queue.timer->start();
}

void DeferredUpdate::FlushIfDue(Pace pace) {
    Queue& queue = QueueOf(pace);
    if (queue.flushPosted || Clock::now() - queue.lastFlush < IntervalOf(pace)) return;
    queue.flushPosted = true;
    QMetaObject::invokeMethod(
        queue.timer, [pace] { Flush(pace); }, Qt::QueuedConnection);
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

void DeferredUpdate::Flush(Pace pace) {
    Queue& queue = QueueOf(pace);
    for (DeferredUpdate* update : queue.waiting) update->Repaint();
    queue.waiting.clear();
    queue.timer->stop();
    queue.flushPosted = false;
    queue.lastFlush = Clock::now();
}

}  // namespace orbkl4
