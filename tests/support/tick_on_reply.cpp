#include "support/tick_on_reply.h"

#include "platform/events/event_gate.h"
#include "platform/events/mscomm.h"
#include "platform/events/timer.h"

namespace orbkl4::test {

TickOnReply::TickOnReply(Timer& timer, MSComm& port, int patience)
    : QObject(&timer), timer_(timer), port_(port), patience_(patience) {
    timer_.Interval(patience_);
    // Connected last, so it runs after the screen's handler.
    connect(&timer_, &Timer::Tick, this, [this] { timer_.Interval(patience_); });
    connect(&looks_, &QTimer::timeout, this, [this] { Look(); });
    looks_.start(1);
}

void TickOnReply::Look() {
    const bool idle = !timer_.Enabled() || !port_.PortOpen() || !EventGate::Instance().IsOpen();
    const int waiting = idle ? 0 : port_.InBufferCount();
    const bool complete = waiting > 0 && waiting == waiting_;
    waiting_ = waiting;
    if (complete && timer_.Interval() == patience_) timer_.Interval(1);
}

}  // namespace orbkl4::test
