#include "platform/events/timer.h"

#include <QPointer>

namespace orbkl4 {

Timer::Timer(QObject* screen, const char* name, int interval)
    : QObject(screen), interval_(interval) {
    setObjectName(QLatin1String(name));
    timer_.setSingleShot(true);
    timer_.setTimerType(Qt::PreciseTimer);
    connect(&timer_, &QTimer::timeout, this, [this] {
        due_ = true;
        EventGate::Instance().Offer(*this);
    });
}

void Timer::Interval(int milliseconds) {
    interval_ = milliseconds;
    Arm();
}

void Timer::Enabled(bool enabled) {
    enabled_ = enabled;
    Arm();
}

void Timer::Arm() {
    due_ = false;
    timer_.stop();
    if (enabled_ && interval_ > 0) timer_.start(interval_);
}

void Timer::DeliverEvent() {
    due_ = false;
    const QPointer<Timer> alive(this);
    emit Tick();
    if (alive) Arm();
}

}  // namespace orbkl4
